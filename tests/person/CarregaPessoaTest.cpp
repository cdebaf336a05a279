#include "base/Literals.h"
#include "person/PessoasTest.h"

namespace vorta::test {

class CarregaPessoaTela : public PessoasTest {
  protected:
    /// A row with a null in every column that is not given.
    void personRow(std::map<QString, data::Value> valores) {
        static const char* colunas[] = {"IDPESS",
                                        "NOME_PESS",
                                        "NOME_CONH",
                                        "DATA_DESA",
                                        "DATA_INCL",
                                        "PESS_CODI_EXTE",
                                        "RG00_IE00",
                                        "DATA_ANIV",
                                        "DATA_ANIV_RELA",
                                        "ENDE_COML_PESS",
                                        "ENDE_ENTG_PESS",
                                        "ENDE_COBR_PESS",
                                        "NUME_COML_PESS",
                                        "NUME_ENTG_PESS",
                                        "NUME_COBR_PESS",
                                        "CMPL_COML_PESS",
                                        "CMPL_ENTG_PESS",
                                        "CMPL_COBR_PESS",
                                        "BAIR_COML_PESS",
                                        "BAIR_ENTG_PESS",
                                        "BAIR_COBR_PESS",
                                        "CIDA_COML_PESS",
                                        "CIDA_ENTG_PESS",
                                        "CIDA_COBR_PESS",
                                        "UF00_COML_PESS",
                                        "UF00_ENTG_PESS",
                                        "UF00_COBR_PESS",
                                        "CODI_MUNI_COML_PESS",
                                        "CODI_MUNI_ENTG_PESS",
                                        "CODI_MUNI_COBR_PESS",
                                        "PAIS_COML_PESS",
                                        "PAIS_ENTG_PESS",
                                        "PAIS_COBR_PESS",
                                        "CPF0_CNPJ",
                                        "CEP0_COML_PESS",
                                        "CEP0_ENTG_PESS",
                                        "CEP0_COBR_PESS",
                                        "TELE_0001_PESS",
                                        "TELE_0002_PESS",
                                        "FAX0_0001_PESS",
                                        "FAX0_0002_PESS",
                                        "EMAI_PESS",
                                        "HTTP_PESS",
                                        "IDVEND",
                                        "TABE_PREC",
                                        "OBSE_PESS_0001",
                                        "OBSE_PESS_0002",
                                        "OBSE_PESS_0003",
                                        "NUME_IMUN_PESS",
                                        "NUME_SUFRAMA_PESS",
                                        "NUME_SUBS_TRIB_PESS",
                                        "NOME_CONT_PESS",
                                        "FLAG_FISC_PESS",
                                        "PSFI_PSJU",
                                        "IDTIPO_CLIE",
                                        "IDPESS_TRPT",
                                        "PRIN_NOME_CONT",
                                        "PRIN_FONE_CONT",
                                        "PRIN_EMAI_CONT"};
        valores.try_emplace(u"IDPESS"_s, number(44));
        valores.try_emplace(u"NOME_PESS"_s, text("AURORA LTDA"));
        valores.try_emplace(u"PSFI_PSJU"_s, text("J"));
        FakeRows linhas;
        linhas.rows.emplace_back();
        for (const char* coluna : colunas) {
            linhas.columns << QString::fromLatin1(coluna);
            linhas.rows[0] << valores[QString::fromLatin1(coluna)];
        }
        database.answer(u"FROM PESS WHERE IDPESS"_s, linhas);
        database.answer(u"FROM PESS WHERE PESS_CODI_EXTE"_s, linhas);
    }
    void find(const char* id = "44") {
        tela.txtRowID.setText(QString::fromLatin1(id));
        click(tela.cmdPesquisar_Cliente);
    }
};

TEST_F(CarregaPessoaTela, NobodyThere) {
    tela.setCaption(u"Barra"_s);
    find("45");
    ASSERT_EQ(platform.boxes.size(), 1u);
    EXPECT_EQ(platform.boxes[0].text, u"Pessoa não localizada!");
    EXPECT_EQ(platform.boxes[0].title, u"Barra");
    EXPECT_EQ(platform.boxes[0].icon, screen::Icon::Information);
    EXPECT_EQ(tela.focus(), &tela.txtRowID);
    EXPECT_EQ(tela.txtRowID.text(), u"45");
    EXPECT_EQ(database.sent, (QStringList{"SELECT * FROM PESS WHERE IDPESS=45"}));
}

TEST_F(CarregaPessoaTela, NullsGiveEmptyFields) {
    tela.txtOBSE_PESS_0003.setText(u"de outra pessoa"_s);
    tela.txtDTDesativa.setText(u"01/01/2020"_s);
    personRow({});
    find();
    EXPECT_EQ(tela.txtDescricao.text(), u"AURORA LTDA");
    EXPECT_EQ(tela.txtOBSE_PESS_0003.text(), QString());
    EXPECT_EQ(tela.txtDTDesativa.text(), QString());
    EXPECT_EQ(tela.mskDtNasc.text(), u"__/__");
    EXPECT_EQ(tela.mskDtAnivRel.text(), u"__/__/____");
    EXPECT_EQ(tela.mskCEP.text(), u"_____-___");
    EXPECT_EQ(tela.cboPais_Coml.text(), QString());
    EXPECT_EQ(tela.cboFisJur.text(), u"Jurídica");
    EXPECT_EQ(tela.lblCGCCPF.text(), u"CGC:");
    EXPECT_EQ(tela.lblIE_RG.text(), u"I.ESTADUAL:");
    EXPECT_FALSE(program.hasEnded());
}

TEST_F(CarregaPessoaTela, EveryColumnReachesItsField) {
    database.answer(u"AND VEND.IDVEND =7"_s, {{u"NOME_CONH"_s}, {{text("RITA")}}});
    database.answer(u"AND TRPT.IDTRPT =8"_s, {{u"NOME_CONH"_s}, {{text("RODA")}}});
    database.answer(u"WHERE IDTIPO_CLIE=2"_s, {{u"DESC_TIPO_CLIE"_s}, {{text("PRATA")}}});
    personRow({{u"DATA_DESA"_s, date(2020, 3, 4)},
               {u"DATA_INCL"_s, date(2019, 1, 2)},
               {u"DATA_ANIV"_s, text("31/12")},
               {u"DATA_ANIV_RELA"_s, date(2018, 7, 9)},
               {u"CPF0_CNPJ"_s, text("11222333")},
               {u"IDVEND"_s, number(7)},
               {u"IDPESS_TRPT"_s, number(8)},
               {u"IDTIPO_CLIE"_s, number(2)},
               {u"PSFI_PSJU"_s, text("F")},
               {u"FAX0_0002_PESS"_s, text("9999")},
               {u"OBSE_PESS_0002"_s, text("nota")},
               {u"CODI_MUNI_ENTG_PESS"_s, text("3548500")},
               {u"FLAG_FISC_PESS"_s, text("OK")},
               {u"PRIN_FONE_CONT"_s, text("3333")}});
    find();
    const std::pair<const char*, const char16_t*> esperados[]{{"txtDTDesativa", u"04/03/2020"},
                                                              {"lblDataDesa", u"04/03/2020"},
                                                              {"lblDataIncl", u"02/01/2019"},
                                                              {"mskDtNasc", u"31/12"},
                                                              {"mskDtAnivRel", u"09/07/2018"},
                                                              {"mskCodigo", u"11222333"},
                                                              {"cboVendedor", u"RITA"},
                                                              {"cboTransportadora", u"RODA"},
                                                              {"cboTipoCli", u"PRATA"},
                                                              {"cboFisJur", u"Física"},
                                                              {"lblCGCCPF", u"CPF:"},
                                                              {"lblIE_RG", u"RG:"},
                                                              {"txtFax2", u"9999"},
                                                              {"txtOBSE_PESS_0002", u"nota"},
                                                              {"lblEnt_CodMunIBGE", u"3548500"},
                                                              {"cboStatusIntegraFISCO", u"OK"},
                                                              {"txtPrinFoneContato", u"3333"}};
    for (const auto& [campo, esperado] : esperados)
        EXPECT_EQ(textOf(campo), QString::fromUtf16(esperado)) << campo;
    EXPECT_EQ(tela.mskCodigo.mask(), QString());
}

TEST_F(CarregaPessoaTela, ANullNameIsNotForeseen) {
    personRow({{u"NOME_PESS"_s, null()}});
    find();
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(failure(), errorNumber::InvalidNull);
}

TEST_F(CarregaPessoaTela, ANullKindLoadsAsLegal) {
    personRow({{u"PSFI_PSJU"_s, null()}});
    find();
    EXPECT_EQ(tela.cboFisJur.text(), u"Jurídica");
}

struct CasoCep {
    const char* guardado;
    const char* comercial;
    const char* entrega;
    const char* cobranca;
};

class CepGuardado : public CarregaPessoaTela, public ::testing::WithParamInterface<CasoCep> {};

TEST_P(CepGuardado, ComesUpByTheRuleOfItsBlock) {
    const CasoCep& caso = GetParam();
    const data::Value valor = text(caso.guardado);
    personRow({{u"CEP0_COML_PESS"_s, valor}, {u"CEP0_ENTG_PESS"_s, valor}, {u"CEP0_COBR_PESS"_s, valor}});
    find();
    EXPECT_EQ(tela.mskCEP.text(), QString::fromLatin1(caso.comercial));
    EXPECT_EQ(tela.mskEnt_CEP.text(), QString::fromLatin1(caso.entrega));
    EXPECT_EQ(tela.mskCob_CEP.text(), QString::fromLatin1(caso.cobranca));
}

INSTANTIATE_TEST_SUITE_P(Regras, CepGuardado,
                         ::testing::Values(CasoCep{"13010-100", "13010-100", "13010-100", "13010-100"},
                                           CasoCep{"1310-100", "_____-___", "01310-100", "01310-100"},
                                           CasoCep{"SP", "_____-___", "_____-___", "_____-___"},
                                           CasoCep{"", "_____-___", "_____-___", "_____-___"},
                                           CasoCep{"     -   ", "_____-___", "_____-___", "_____-___"},
                                           CasoCep{"01310/100", "01310-100", "01310-100", "01310-100"}));

TEST_F(CarregaPessoaTela, MissingMunicipalCodesAreLookedUp) {
    database.answer(u"'CAMPINAS'"_s, {{u"CODI_MUNI_IBGE"_s}, {{text("3509502")}}});
    personRow({{u"CIDA_COML_PESS"_s, text("CAMPINAS")},
               {u"CIDA_ENTG_PESS"_s, text("CAMPINAS")},
               {u"CIDA_COBR_PESS"_s, text("CAMPINAS")}});
    find();
    EXPECT_EQ(tela.lblCodMunIBGE.text(), u"3509502");
    EXPECT_EQ(tela.lblEnt_CodMunIBGE.text(), u"3509502");
    EXPECT_EQ(tela.lblCob_CodMunIBGE.text(), QString()) << "looked up only while the commercial code is missing";
}

TEST_F(CarregaPessoaTela, AFilledBillingCodeIsLookedUpAgainWhileTheCommercialOneIsMissing) {
    database.answer(u"'JAU'"_s, {{u"CODI_MUNI_IBGE"_s}, {{text("3525300")}}});
    personRow({{u"CIDA_COBR_PESS"_s, text("JAU")}, {u"CODI_MUNI_COBR_PESS"_s, text("1")}});
    find();
    EXPECT_EQ(tela.lblCob_CodMunIBGE.text(), u"3525300");
}

TEST_F(CarregaPessoaTela, ByExternalCode) {
    database.answer(u"SELECT IDPESS, PESS_CODI_EXTE FROM PESS WHERE PESS.PESS_CODI_EXTE"_s,
                    {{u"IDPESS"_s}, {{number(44)}}});
    personRow({{u"PESS_CODI_EXTE"_s, text("X9")}});
    tela.txtRowID.setText({});
    tela.txtCodPessExterno.setText(u"x9"_s);
    click(tela.cmdPesquisar_Cliente);
    EXPECT_EQ(database.sent[0], u"SELECT * FROM PESS WHERE PESS_CODI_EXTE = 'X9'");
    EXPECT_EQ(tela.txtRowID.text(), u"44");
    EXPECT_EQ(tela.txtCodPessExterno.text(), u"X9");
    EXPECT_TRUE(database.sent.filter(u"ORCA_VEDS"_s).isEmpty());
    EXPECT_TRUE(database.sent.filter(u"PEDI_COMP_DETA"_s).isEmpty());
    EXPECT_FALSE(database.sent.filter(u"PEDI_VEDS"_s).isEmpty());
    EXPECT_FALSE(database.sent.filter(u"PEDI_COMP"_s).isEmpty());
}

TEST_F(CarregaPessoaTela, ListsComeUpInTheirGrids) {
    personRow({});
    database.answer(u"FROM PESS_ATIV"_s, {{u"IDATIV"_s}, {{number(3)}, {number(4)}}});
    database.answer(u"Where idativ = 3"_s, {{u"desc_ativ"_s}, {{text("COMERCIO")}}});
    database.answer(u"FROM PESS_CONT"_s, {{u"CARG_PESS_CONT"_s, u"NOME_PESS_CONT"_s, u"TELE_PESS_CONT"_s,
                                           u"EMAI_PESS_CONT"_s, u"DATA_NASC"_s},
                                          {{text("COMPRAS"), text("ANA"), null(), null(), text("31/12")}}});
    find();
    EXPECT_EQ(tela.FlexAtividades.Rows(), 3);
    EXPECT_EQ(tela.FlexAtividades.cell(1, 1), u"COMERCIO");
    EXPECT_EQ(tela.FlexAtividades.cell(2, 1), QString());
    EXPECT_EQ(tela.contatos.Flex.Rows(), 2);
    EXPECT_EQ(tela.contatos.Flex.cell(1, 1), u"COMPRAS");
    EXPECT_EQ(tela.contatos.Flex.cell(1, 2), u"ANA");
    EXPECT_EQ(tela.contatos.Flex.cell(1, 3), QString());
    EXPECT_EQ(tela.contatos.Flex.cell(1, 5), u"31/12");
}

TEST_F(CarregaPessoaTela, TheModeStaysAndEditsAreGone) {
    personRow({});
    contexto.ModoTela = u"A"_s;
    tela.txtDescricao.setText(u"editado"_s);
    find();
    EXPECT_EQ(tela.txtDescricao.text(), u"AURORA LTDA");
    EXPECT_EQ(contexto.ModoTela, u"A");
}

} // namespace vorta::test
