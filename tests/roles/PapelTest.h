#pragma once

#include "base/Literals.h"
#include "roles/TelaPapel.h"
#include "support/World.h"

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
class PapelTest : public ::testing::Test, protected World {
  protected:
    PapelTest();

    /// The next value of a generator, and the key that the connection gives for the last insert.
    void generator(const char* nome, qint64 valor);
    void identity(qint64 valor);
    /// The person has a role row 31 with these columns; `data_desa` null unless it is among them.
    void roleRow(const char* tabela, const char* chave, QStringList colunas = {}, QList<data::Value> valores = {});

    /// The person has a row 31 in every role, every column null but the date of deactivation.
    void roleRows(const data::Value& desativada = {});

    /// Opens the role screen of person 5 and plays on it; it is closed behind.
    void open(const char* tela, const std::function<void()>& uso);

    TelaPapel& tela() { return *tela_; }
    screen::Field& field(const char* nome) { return tela_->field(QString::fromLatin1(nome)); }
    QString textOf(const char* nome) { return field(nome).text(); }
    screen::Grid& grid() { return dynamic_cast<screen::Grid&>(field("Flex")); }
    void type(const char* nome, const char* valor) { user.type(field(nome), QString::fromUtf8(valor)); }
    void click(const char* nome) { user.click(field(nome)); }
    void focus(const char* nome) { user.focus(field(nome)); }
    QString focused() { return tela_->focus() ? tela_->focus()->name() : QString(); }
    PessoasDeTeste& pessoas() { return dynamic_cast<PessoasDeTeste&>(contexto.Tela(u"frmPessoas"_s)); }

    /// A contact in the entry fields, taken into the grid.
    void addContact(const char* tipo, const char* nome, const char* fone = "", const char* email = "",
                    const char* aniversario = "");

    /// The statements of the last transaction, without its begin and end.
    QStringList transaction() const;
    bool committed() const { return database.sent.contains(u"COMMIT"_s); }
    /// The write statements since the last call.
    QStringList takeWrites();
    const screen::Box& lastBox() const { return platform.boxes.back(); }

  private:
    TelaPapel* tela_ = nullptr;
};

/// The statement that reads a generator.
QString GeneratorRead(const char* nome);

/// What a role screen says behind a save, and in front of leaving one that has not come to its end.
inline const QString saved = u"Registro Gravado com sucesso!"_s;
inline const QString unfinished =
    u"Existe operação não concluída!!!\n\n<Sim> Sair sem Concluir\n<Não> Retornar para a Operação Atual\n"
    u"<Cancela> Retornar e Abortar a Operação Atual"_s;

inline const QString identityRead = u"SELECT @@IDENTITY AS 'MAXROWID'"_s;

} // namespace vorta::test
