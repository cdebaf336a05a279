#pragma once

#include "base/Literals.h"
#include "person/frmPessoas.h"
#include "support/World.h"

namespace vorta::test {

/// The person screen as it stands when the launch has gone by.
class TelaSemLancamento : public frmPessoas {
  public:
    using frmPessoas::frmPessoas;
    void Load() override {}
};

/// The person screen on a scripted database, without the launch: the connection stands and the screen is empty and
/// idle.
class PessoasTest : public ::testing::Test, protected World {
  protected:
    PessoasTest() {
        platform.everyFileExists = true;
        contexto.CodigoUsuario = 12;
        connect();
        database.answer(u"GEN_ID(GEN_PESS, 1)"_s, {{u"GEN_ID"_s}, {{number(501)}}});
        database.answer(u"gen_id(GEN_PESS, 1)"_s, {{u"GEN_ID"_s}, {{number(501)}}});
        database.answer(u"gen_id(GEN_PESS_CONT, 1)"_s, {{u"GEN_ID"_s}, {{number(71)}}});
        database.answer(u"gen_id(GEN_PESS_ATIV, 1)"_s, {{u"GEN_ID"_s}, {{number(81)}}});
        program.ShowModal(tela);
        tela.PosicionaBotoes();
        tela.BloqueiaCampos();
        tela.lblCodiEmpresa.setText(u"0001"_s);
        forget();
    }

    /// A legal person that passes every check.
    void fillPerson() {
        tela.cboFisJur.setText(u"Jurídica"_s);
        tela.mskCodigo.setMask(u"##.###.###/####-##"_s);
        tela.mskCodigo.setText(u"11.222.333/0001-81"_s);
        tela.txtDescricao.setText(u"METALURGICA AURORA LTDA"_s);
        tela.txtNomeFantasia.setText(u"AURORA"_s);
        tela.txtEndereco.setText(u"RUA DAS FLORES"_s);
        tela.txtBairro.setText(u"CENTRO"_s);
        tela.cboCidade.setText(u"CAMPINAS"_s);
        tela.cboUF.setText(u"SP"_s);
        tela.mskCEP.setText(u"13010-100"_s);
        for (screen::ListField* pais : {&tela.cboPais_Coml, &tela.cboPais_Entg, &tela.cboPais_Cobr})
            pais->setText(u"BRASIL"_s);
    }

    void click(screen::Button& botao) {
        botao.setEnabled(true);
        user.click(botao);
    }

    QString textOf(const char* campo) { return tela.field(QString::fromLatin1(campo)).text(); }

    TelaSemLancamento tela{contexto};
};

} // namespace vorta::test
