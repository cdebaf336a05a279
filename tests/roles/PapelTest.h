#pragma once

#include "base/Literals.h"
#include "launch/ContextoExecucao.h"
#include "roles/TelaPapel.h"
#include "screen/User.h"
#include "support/FailingStatements.h"
#include "support/FakeDatabase.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace vorta::test {

/// What the role screens reach of the person screen, by its names.
class PessoasDeTeste : public screen::Screen {
  public:
    explicit PessoasDeTeste(ContextoExecucao& contexto) : Screen(contexto.program(), u"frmPessoas"_s) {}

    screen::TextField txtRowID{this, "txtRowID"};
    screen::Label lblDataDesa{this, "lblDataDesa"};
    screen::Button cmdCliente{this, "cmdCliente"};
    screen::Button cmdTransportadora{this, "cmdTransportadora"};
    screen::Button cmdVendedor{this, "cmdVendedor"};
    screen::Button cmdMotorista{this, "cmdMotorista"};
    screen::Button cmdFornecedor{this, "cmdFornecedor"};
    screen::Button cmdDecorador{this, "cmdDecorador"};
    screen::Button cmdArquiteto{this, "cmdArquiteto"};
};

/// A register of role screens without an engine: person 5, user 7 (MARIA), 20 November 2026.
class PapelTest : public ::testing::Test {
  protected:
    PapelTest();

    /// Connects to an engine; "FIREBIRD" unless told otherwise.
    void conecta(const char* motor = "FIREBIRD");
    /// The next value of a generator, and the key that the connection gives for the last insert.
    void gerador(const char* nome, qint64 valor);
    void identidade(qint64 valor);
    /// The person has a role row 31 with these columns; `data_desa` null unless it is among them.
    void registro(const char* tabela, const char* chave, QStringList colunas = {}, QList<data::Value> valores = {});

    /// The person has a row 31 in every role, every column null but the date of deactivation.
    void registros(const data::Value& desativada = {});

    /// Opens the role screen of person 5 and plays on it; it is closed behind.
    void abre(const char* tela, const std::function<void()>& uso);

    TelaPapel& tela() { return *tela_; }
    screen::Field& campo(const char* nome) { return tela_->field(QString::fromLatin1(nome)); }
    QString texto(const char* nome) { return campo(nome).text(); }
    screen::Grid& grade() { return dynamic_cast<screen::Grid&>(campo("Flex")); }
    void digita(const char* nome, const char* valor) { usuario.type(campo(nome), QString::fromUtf8(valor)); }
    void clica(const char* nome) { usuario.click(campo(nome)); }
    void foca(const char* nome) { usuario.focus(campo(nome)); }
    QString foco() { return tela_->focus() ? tela_->focus()->name() : QString(); }
    PessoasDeTeste& pessoas() { return dynamic_cast<PessoasDeTeste&>(contexto.Tela(u"frmPessoas"_s)); }

    /// A contact in the entry fields, taken into the grid.
    void incluiContato(const char* tipo, const char* nome, const char* fone = "", const char* email = "",
                       const char* aniversario = "");

    /// The statements of the last transaction, without its begin and end.
    QStringList transacao() const;
    bool confirmada() const { return base.sent.contains(u"COMMIT"_s); }
    /// The write statements since the last call.
    QStringList escritas();
    const screen::Box& ultimaCaixa() const { return plataforma.boxes.back(); }

    TestPlatform plataforma;
    FakeDatabase base;
    screen::Program programa{plataforma};
    FailingStatements falhas{base.factory()};
    ContextoExecucao contexto{programa, falhas.factory()};
    screen::User usuario{programa};

  private:
    TelaPapel* tela_ = nullptr;
};

/// The statement that reads a generator.
QString LeituraGerador(const char* nome);

inline const QString identidadeLida = u"SELECT @@IDENTITY AS 'MAXROWID'"_s;

} // namespace vorta::test
