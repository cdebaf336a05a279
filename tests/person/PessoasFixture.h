#pragma once

#include "launch/ContextoExecucao.h"
#include "person/frmPessoas.h"
#include "screen/User.h"
#include "support/FakeDatabase.h"
#include "support/TestPlatform.h"

#include <gtest/gtest.h>

namespace vorta::test {

/// The person screen as it stands when the launch has gone by.
class TelaSemLancamento : public frmPessoas {
  public:
    using frmPessoas::frmPessoas;
    void Load() override {}
};

/// The person screen on a scripted database, without the launch: the connection stands and the screen is empty and
/// idle.
class PessoasFixture : public ::testing::Test {
  protected:
    PessoasFixture() {
        platform.everyFileExists = true;
        contexto.CodigoUsuario = 12;
        UsaBanco(QStringLiteral("FIREBIRD"));
        database.answer(QStringLiteral("GEN_ID(GEN_PESS, 1)"), {{QStringLiteral("GEN_ID")}, {{number(501)}}});
        database.answer(QStringLiteral("gen_id(GEN_PESS, 1)"), {{QStringLiteral("GEN_ID")}, {{number(501)}}});
        database.answer(QStringLiteral("gen_id(GEN_PESS_CONT, 1)"), {{QStringLiteral("GEN_ID")}, {{number(71)}}});
        database.answer(QStringLiteral("gen_id(GEN_PESS_ATIV, 1)"), {{QStringLiteral("GEN_ID")}, {{number(81)}}});
        program.ShowModal(tela);
        tela.PosicionaBotoes();
        tela.BloqueiaCampos();
        tela.lblCodiEmpresa.setText(QStringLiteral("0001"));
        database.sent.clear();
    }

    void UsaBanco(const QString& tag) {
        contexto.TipoBanco = tag;
        contexto.ConexaoPrincipal = contexto.novaConexao();
        contexto.ConexaoPrincipal->Open(tag == u"FIREBIRD" ? data::Engine::Firebird : data::Engine::SqlServer, {});
    }

    void Parametro(const char* nome, const char* valor) {
        database.answer(QStringLiteral("NOME_PARA='%1'").arg(QLatin1StringView(nome)),
                        {{QStringLiteral("VALO_PARA")}, {{text(valor)}}});
    }

    /// A legal person that passes every check.
    void PreenchePessoa() {
        tela.cboFisJur.setText(QStringLiteral("Jurídica"));
        tela.mskCodigo.setMask(QStringLiteral("##.###.###/####-##"));
        tela.mskCodigo.setText(QStringLiteral("11.222.333/0001-81"));
        tela.txtDescricao.setText(QStringLiteral("METALURGICA AURORA LTDA"));
        tela.txtNomeFantasia.setText(QStringLiteral("AURORA"));
        tela.txtEndereco.setText(QStringLiteral("RUA DAS FLORES"));
        tela.txtBairro.setText(QStringLiteral("CENTRO"));
        tela.cboCidade.setText(QStringLiteral("CAMPINAS"));
        tela.cboUF.setText(QStringLiteral("SP"));
        tela.mskCEP.setText(QStringLiteral("13010-100"));
        for (screen::ListField* pais : {&tela.cboPais_Coml, &tela.cboPais_Entg, &tela.cboPais_Cobr})
            pais->setText(QStringLiteral("BRASIL"));
    }

    void Clica(screen::Button& botao) {
        botao.setEnabled(true);
        user.click(botao);
    }

    QString Texto(const char* campo) { return tela.field(QString::fromLatin1(campo)).text(); }

    TestPlatform platform;
    FakeDatabase database;
    screen::Program program{platform};
    ContextoExecucao contexto{program, database.factory()};
    TelaSemLancamento tela{contexto};
    screen::User user{program};
};

} // namespace vorta::test
