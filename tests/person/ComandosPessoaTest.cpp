#include "person/ComandosPessoa.h"
#include "base/Literals.h"

#include "person/ContatosPessoa.h"
#include "person/PessoasTest.h"
#include "shared/Insercao.h"

namespace vorta::test {

using ComandosPessoa = PessoasTest;

const QString insereMinimo =
    u"psfi_psju, cpf0_cnpj, nome_pess, nome_conh, ENDE_COML_PESS, BAIR_COML_PESS, CIDA_COML_PESS, UF00_COML_PESS, "
    "CEP0_COML_PESS, PAIS_COML_PESS, CEP0_ENTG_PESS, PAIS_ENTG_PESS, CEP0_COBR_PESS, PAIS_COBR_PESS, Data_Aniv, "
    "idTipo_Clie, codi_empr, data_incl, user_incl) "_s;
const QString valoresMinimos =
    u"'J', '11.222.333/0001-81', 'METALURGICA AURORA LTDA', 'AURORA', 'RUA DAS FLORES', 'CENTRO', 'CAMPINAS', 'SP', "
    "'13010-100', 'BRASIL', '_____-___', 'BRASIL', '_____-___', 'BRASIL', '__/__', '0', '0001', '20261120', '12')"_s;

TEST_F(ComandosPessoa, AnInsertWithoutOptionalFieldsStillHoldsBlankMasksCountriesAndClass) {
    fillPerson();
    EXPECT_EQ(MontaInsertPessoa(contexto, tela, 501).text(),
              u"insert into pess (idpess, "_s + insereMinimo + u"values ('501', "_s + valoresMinimos);
}

TEST_F(ComandosPessoa, OtherEnginesAssignTheKeyThemselves) {
    connect(u"MS-SQL"_s);
    fillPerson();
    EXPECT_EQ(MontaInsertPessoa(contexto, tela, ChaveDoGerador(contexto, data::Piece("GEN_PESS"))).text(),
              u"insert into pess ("_s + insereMinimo + u"values ("_s + valoresMinimos);
}

class ComandosPessoaCompleta : public PessoasTest {
  protected:
    void SetUp() override {
        fillPerson();
        database.answer(u"FROM VEND"_s, {{u"IDVEND"_s}, {{number(7)}}});
        database.answer(u"FROM TRPT"_s, {{u"IDTRPT"_s}, {{number(8)}}});
        database.answer(u"FROM TIPO_CLIE"_s, {{u"IDTIPO_CLIE"_s}, {{number(2)}}});
        const std::pair<const char*, const char*> valores[]{
            {"txtCodPessExterno", " X9 "},
            {"txtIEstadual", "110042490114"},
            {"txtNumero", "10"},
            {"txtComplemento", "SALA 1"},
            {"lblCodMunIBGE", "3509502"},
            {"txtEnt_Endereco", "RUA B"},
            {"txtEnt_Numero", "20"},
            {"txtEnt_Complemento", "C2"},
            {"txtEnt_Bairro", "B2"},
            {"cboEnt_Cidade", "SANTOS"},
            {"cboEnt_UF", "SP"},
            {"mskEnt_CEP", "11010-000"},
            {"lblEnt_CodMunIBGE", "3548500"},
            {"txtCob_Endereco", "RUA C"},
            {"txtCob_Numero", "30"},
            {"txtCob_Complemento", "C3"},
            {"txtCob_Bairro", "B3"},
            {"cboCob_Cidade", "JAU"},
            {"cboCob_UF", "SP"},
            {"mskCob_CEP", "17201-000"},
            {"lblCob_CodMunIBGE", "3525300"},
            {"mskDtNasc", "31/12"},
            {"mskDtAnivRel", "05/03/2019"},
            {"txtFone1", "1932321000"},
            {"txtFone2", "1932322000"},
            {"txtFax1", "1932323000"},
            {"txtFax2", "19999990000"},
            {"txtEmail1", "a@b.com"},
            {"txtHomePage", "www.b.com"},
            {"cboVendedor", "RITA"},
            {"cboTabelaPrecos", "Tabela B"},
            {"txtOBSE_PESS_0001", "N1"},
            {"txtOBSE_PESS_0002", "N2"},
            {"txtOBSE_PESS_0003", "N3"},
            {"cboTipoCli", "PRATA"},
            {"cboTransportadora", "RODA"},
            {"txtPrinNomeContato", "ANA"},
            {"txtPrinFoneContato", "3333"},
            {"txtPrinEmailContato", "c@d.com"},
            {"txtIMunicipal", "IM"},
            {"txtSuframa", "SU"},
            {"txtSubsTributario", "ST"},
            {"txtContatoPrincipal", "BIA"},
        };
        for (const auto& [campo, valor] : valores)
            tela.field(QString::fromLatin1(campo)).setText(QString::fromUtf8(valor));
        tela.txtRowID.setText(u"44"_s);
    }
};

TEST_F(ComandosPessoaCompleta, TheInsertNamesEveryColumnInItsPlace) {
    EXPECT_EQ(
        MontaInsertPessoa(contexto, tela, 501).text(),
        u"insert into pess (idpess, psfi_psju, cpf0_cnpj, nome_pess, nome_conh, pess_codi_exte, rg00_ie00, "
        "ENDE_COML_PESS, NUME_COML_PESS, CMPL_COML_PESS, BAIR_COML_PESS, CIDA_COML_PESS, UF00_COML_PESS, "
        "CEP0_COML_PESS, PAIS_COML_PESS, CODI_MUNI_COML_PESS, ENDE_ENTG_PESS, NUME_ENTG_PESS, CMPL_ENTG_PESS, "
        "BAIR_ENTG_PESS, CIDA_ENTG_PESS, UF00_ENTG_PESS, CEP0_ENTG_PESS, PAIS_ENTG_PESS, CODI_MUNI_ENTG_PESS, "
        "ENDE_COBR_PESS, NUME_COBR_PESS, CMPL_COBR_PESS, BAIR_COBR_PESS, CIDA_COBR_PESS, UF00_COBR_PESS, "
        "CEP0_COBR_PESS, PAIS_COBR_PESS, CODI_MUNI_COBR_PESS, Data_Aniv, TELE_0001_PESS, TELE_0002_PESS, "
        "FAX0_0001_PESS, FAX0_0002_PESS, EMAI_PESS, HTTP_PESS, idvend, tabe_prec, OBSE_PESS_0001, OBSE_PESS_0002, "
        "OBSE_PESS_0003, idTipo_Clie, IDPESS_TRPT, data_aniv_rela, PRIN_NOME_CONT, PRIN_FONE_CONT, PRIN_EMAI_CONT, "
        "NUME_IMUN_PESS, NUME_SUFRAMA_PESS, NUME_SUBS_TRIB_PESS, NOME_CONT_PESS, codi_empr, data_incl, user_incl) "
        "values ('501', 'J', '11.222.333/0001-81', 'METALURGICA AURORA LTDA', 'AURORA', 'X9', '110042490114', "
        "'RUA DAS FLORES', '10', 'SALA 1', 'CENTRO', 'CAMPINAS', 'SP', '13010-100', 'BRASIL', '3509502', 'RUA B', "
        "'20', 'C2', 'B2', 'SANTOS', 'SP', '11010-000', 'BRASIL', '3548500', 'RUA C', '30', 'C3', 'B3', 'JAU', "
        "'SP', '17201-000', 'BRASIL', '3525300', '31/12', '1932321000', '1932322000', '1932323000', "
        "'19999990000', 'a@b.com', 'www.b.com', '7', 'Tabela B', 'N1', 'N2', 'N3', '2', '8', '20190305', 'ANA', "
        "'3333', 'c@d.com', 'IM', 'SU', 'ST', 'BIA', '0001', '20261120', '12')"_s);
}

TEST_F(ComandosPessoaCompleta, TheUpdateNamesEveryColumnInItsPlace) {
    EXPECT_EQ(MontaUpdatePessoa(contexto, tela).text(),
              u"UPDATE PESS SET CPF0_CNPJ='11.222.333/0001-81', PSFI_PSJU='J', NOME_PESS='METALURGICA AURORA LTDA', "
              "NOME_CONH='AURORA', pess_codi_exte='X9', RG00_IE00='110042490114', ENDE_COML_PESS='RUA DAS FLORES', "
              "ENDE_ENTG_PESS='RUA B', ENDE_COBR_PESS='RUA C', NUME_COML_PESS='10', NUME_ENTG_PESS='20', "
              "NUME_COBR_PESS='30', CMPL_COML_PESS='SALA 1', CMPL_ENTG_PESS='C2', CMPL_COBR_PESS='C3', "
              "BAIR_COML_PESS='CENTRO', BAIR_ENTG_PESS='B2', BAIR_COBR_PESS='B3', CIDA_COML_PESS='CAMPINAS', "
              "CIDA_ENTG_PESS='SANTOS', CIDA_COBR_PESS='JAU', UF00_COML_PESS='SP', UF00_ENTG_PESS='SP', "
              "UF00_COBR_PESS='SP', PAIS_COML_PESS='BRASIL', PAIS_ENTG_PESS='BRASIL', PAIS_COBR_PESS='BRASIL', "
              "CEP0_COML_PESS='13010-100', CEP0_ENTG_PESS='11010-000', CEP0_COBR_PESS='17201-000', "
              "CODI_MUNI_COML_PESS='3509502', CODI_MUNI_ENTG_PESS='3548500', CODI_MUNI_COBR_PESS='3525300', "
              "TELE_0001_PESS='1932321000', TELE_0002_PESS='1932322000', FAX0_0001_PESS='1932323000', "
              "FAX0_0002_PESS='19999990000', EMAI_PESS='a@b.com', idvend='7', tabe_prec='Tabela B', Data_Aniv='31/12', "
              "data_aniv_rela='20190305', idTipo_Clie='2', OBSE_PESS_0001='N1', OBSE_PESS_0002='N2', "
              "OBSE_PESS_0003='N3', IDPESS_TRPT='8', PRIN_NOME_CONT='ANA', PRIN_FONE_CONT='3333', "
              "PRIN_EMAI_CONT='c@d.com', NUME_IMUN_PESS='IM', NUME_SUFRAMA_PESS='SU', NUME_SUBS_TRIB_PESS='ST', "
              "NOME_CONT_PESS='BIA', codi_empr='0001', HTTP_PESS='www.b.com' WHERE (idPESS=44)"_s);
}

TEST_F(ComandosPessoaCompleta, NamesThatWereTypedInsteadOfChosenAreStoredAsZero) {
    database.answer(u"FROM VEND"_s, {});
    database.answer(u"FROM TRPT"_s, {});
    database.answer(u"FROM TIPO_CLIE"_s, {});
    const data::Statement comando = MontaUpdatePessoa(contexto, tela);
    EXPECT_TRUE(comando.text().contains(u"idvend='0', "));
    EXPECT_TRUE(comando.text().contains(u"idTipo_Clie='0', "));
    EXPECT_TRUE(comando.text().contains(u"IDPESS_TRPT='0', "));
}

TEST_F(ComandosPessoa, AnUpdateOfAnEmptyScreenSetsNulls) {
    tela.txtRowID.setText(u"9"_s);
    for (screen::MaskedField* campo :
         {&tela.mskCodigo, &tela.mskCEP, &tela.mskEnt_CEP, &tela.mskCob_CEP, &tela.mskDtNasc})
        campo->setMask({}), campo->setText({});
    tela.lblCodiEmpresa.setText({});
    EXPECT_EQ(
        MontaUpdatePessoa(contexto, tela).text(),
        u"UPDATE PESS SET CPF0_CNPF=null, PSFI_PSJU='J', NOME_PESS=null, NOME_CONH=null, pess_codi_exte=null, "
        "RG00_IE00=null, ENDE_COML_PESS=null, ENDE_ENTG_PESS=null, ENDE_COBR_PESS=null, NUME_COML_PESS=null, "
        "NUME_ENTG_PESS=null, NUME_COBR_PESS=null, CMPL_COML_PESS=null, CMPL_ENTG_PESS=null, CMPL_COBR_PESS=null, "
        "BAIR_COML_PESS=null, BAIR_ENTG_PESS=null, BAIR_COBR_PESS=null, CIDA_COML_PESS=null, CIDA_ENTG_PESS=null, "
        "CIDA_COBR_PESS=null, UF00_COML_PESS=null, UF00_ENTG_PESS=null, UF00_COBR_PESS=null, PAIS_COML_PESS=null, "
        "PAIS_ENTG_PESS=null, PAIS_COBR_PESS=null, CEP0_COML_PESS=null, CEP0_ENTG_PESS=null, CEP0_COBR_PESS=null, "
        "CODI_MUNI_COML_PESS=null, CODI_MUNI_ENTG_PESS=null, CODI_MUNI_COBR_PESS=null, TELE_0001_PESS=null, "
        "TELE_0002_PESS=null, FAX0_0001_PESS=null, FAX0_0002_PESS=null, EMAI_PESS=null, idvend=null, tabe_prec=null, "
        "Data_Aniv=null, data_aniv_rela=null, idTipo_Clie=0, OBSE_PESS_0001=null, OBSE_PESS_0002=null, "
        "OBSE_PESS_0003=null, IDPESS_TRPT=null, PRIN_NOME_CONT=null, PRIN_FONE_CONT=null, PRIN_EMAI_CONT=null, "
        "NUME_IMUN_PESS=null, NUME_SUFRAMA_PESS=null, NUME_SUBS_TRIB_PESS=null, NOME_CONT_PESS=null, codi_empr='', "
        "HTTP_PESS=null WHERE (idPESS=9)"_s);
}

TEST_F(ComandosPessoa, AnInvalidAnniversaryIsNotStored) {
    fillPerson();
    tela.mskDtAnivRel.setText(u"31/02/2020"_s);
    EXPECT_FALSE(MontaInsertPessoa(contexto, tela, 1).text().contains(u"data_aniv_rela"));
    EXPECT_TRUE(MontaUpdatePessoa(contexto, tela).text().contains(u"data_aniv_rela=null, "));
}

TEST_F(ComandosPessoa, TheMunicipalCodeIsTrimmedAtInclusionOnly) {
    fillPerson();
    tela.lblCodMunIBGE.setText(u" 3509502 "_s);
    EXPECT_TRUE(MontaInsertPessoa(contexto, tela, 1).text().contains(u"'3509502'"));
    EXPECT_TRUE(MontaUpdatePessoa(contexto, tela).text().contains(u"CODI_MUNI_COML_PESS=' 3509502 '"));
}

TEST_F(ComandosPessoa, ContactInsert) {
    tela.contatos.PreparaGridContatos();
    tela.contatos.Flex.AddItem(u"\tCOMPRAS\tAna\t3333\ta@b.com\t31/12"_s);
    tela.contatos.Flex.AddItem(u"\tDIRETOR\tBia"_s);
    EXPECT_EQ(
        tela.contatos.MontaInsertContato(u"44"_s, 1).text(),
        u"insert into pess_cont (idpess_cont, idpess, carg_pess_cont, nome_pess_cont, tele_pess_cont, "
        "emai_pess_cont, data_nasc, data_incl, user_incl) values ('71', '44', 'COMPRAS', 'Ana', '3333', 'a@b.com', "
        "'31/12', '20261120', '12')"_s);
    connect(u"MSSQL"_s);
    EXPECT_EQ(tela.contatos.MontaInsertContato(u"44"_s, 2).text(),
              u"insert into pess_cont (idpess, carg_pess_cont, nome_pess_cont, data_nasc, data_incl, user_incl) "
              "values ('44', 'DIRETOR', 'Bia', '', '20261120', '12')"_s);
}

TEST_F(ComandosPessoa, BranchInsertLooksTheKeyUpAfresh) {
    database.answer(u"FROM ativ"_s, {{u"idAtiv"_s}, {{number(33)}}});
    PreparaGridAtividades(tela);
    tela.FlexAtividades.AddItem(u"\tCOMERCIO\t"_s);
    EXPECT_EQ(MontaInsertAtividade(tela, u"44"_s, 1).text(),
              u"insert into pess_ativ (idpess_ativ, idpess, idativ, data_incl, user_incl) values ('81', '44', '33', "
              "'20261120', '12')"_s);
    connect(u"MS-SQL2008WEB"_s);
    EXPECT_EQ(MontaInsertAtividade(tela, u"44"_s, 1).text(),
              u"insert into pess_ativ (idpess, idativ, data_incl, user_incl) values ('44', '33', '20261120', '12')"_s);
}

TEST_F(ComandosPessoa, Deletes) {
    tela.txtRowID.setText(u"44"_s);
    EXPECT_EQ(tela.contatos.MontaDeleteContatos(u"44"_s).upper().text(), u"DELETE FROM PESS_CONT WHERE (IDPESS=44)"_s);
    EXPECT_EQ(MontaDeleteAtividades(tela).text(), u"DELETE FROM pess_ativ WHERE (idpess=44)"_s);
}

} // namespace vorta::test
