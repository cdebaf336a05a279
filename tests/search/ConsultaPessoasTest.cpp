#include "base/Literals.h"
#include "search/BuscaTest.h"

#include "base/RuntimeError.h"

namespace vorta::test {

namespace {

using Tela = frmBROWSE_PESSOAS;

const QString consultaRamo =
    u"SELECT PESS.IDPESS, PESS.NOME_PESS, PESS.NOME_CONH, PESS.PSFI_PSJU, PESS.CPF0_CNPJ, PESS.RG00_IE00, "
    "PESS.ENDE_COML_PESS, PESS.BAIR_COML_PESS, PESS.CIDA_COML_PESS, PESS.CEP0_COML_PESS, PESS.UF00_COML_PESS, "
    "PESS.ENDE_ENTG_PESS, PESS.BAIR_ENTG_PESS, PESS.CIDA_ENTG_PESS, PESS.CEP0_ENTG_PESS, PESS.UF00_ENTG_PESS, "
    "PESS.TELE_0001_PESS, PESS.TELE_0002_PESS, PESS.EMAI_PESS, PESS.HTTP_PESS, PESS.ENDE_COBR_PESS, "
    "PESS.BAIR_COBR_PESS, PESS.CIDA_COBR_PESS, PESS.CEP0_COBR_PESS, PESS.UF00_COBR_PESS, PESS.FAX0_0001_PESS, "
    "PESS.FAX0_0002_PESS, PESS.DATA_ANIV, PESS.SEXO, PESS.DATA_INCL, PESS.USER_INCL, PESS.DATA_DESA, "
    "PESS.USER_DESA, ATIV.DESC_ATIV, PESS.IDCLIE, PESS.IDTRPT, PESS.IDVEND, PESS.IDMOTO, PESS.IDDECO, PESS.IDFORN, "
    "PESS.IDARQT FROM ATIV, PESS, PESS_ATIV WHERE PESS_ATIV.IDPESS = PESS.IDPESS AND PESS_ATIV.IDATIV = ATIV.IDATIV "
    "AND (PESS.DATA_DESA IS NULL) "_s;
const QString ativos = u"SELECT * FROM PESS WHERE DATA_DESA IS NULL "_s;
const QString desativados = u"SELECT * FROM PESS WHERE (NOT DATA_DESA IS NULL) "_s;

/// One row of the option table with a text and without one, behind the piece for active persons.
struct Linha {
    const char* forma;
    const char* conteudo;
    const char* comTexto;
    const char* semTexto;
};

const Linha linhas[]{
    {"opCPFCNPJ", "opInicialCom", "AND CPF0_CNPJ LIKE 'JOÃO 10%' ORDER BY NOME_PESS", "ORDER BY NOME_PESS"},
    {"opNome", "opQualquerParte", "AND NOME_PESS LIKE '%JOÃO 10%' ORDER BY NOME_PESS", "ORDER BY NOME_PESS"},
    {"opNome", "opCampoInteiro", "AND NOME_PESS = 'JOÃO 10' ORDER BY NOME_PESS", "ORDER BY NOME_PESS"},
    {"opNome", "opInicialCom", "AND NOME_PESS LIKE 'JOÃO 10%' ORDER BY NOME_PESS", "ORDER BY NOME_PESS"},
    {"opFantasia", "opQualquerParte", "AND NOME_CONH LIKE '%JOÃO 10%' ORDER BY NOME_CONH", "ORDER BY NOME_CONH"},
    {"opFantasia", "opCampoInteiro", "AND NOME_CONH = 'JOÃO 10' ORDER BY NOME_CONH", "ORDER BY NOME_CONH"},
    {"opFantasia", "opInicialCom", "AND NOME_CONH LIKE 'JOÃO 10%' ORDER BY NOME_CONH", "ORDER BY NOME_CONH"},
    {"opCidade", "opCampoInteiro", "AND CIDA_COML_PESS LIKE '%JOÃO 10%' ORDER BY NOME_CONH", "ORDER BY NOME_CONH"},
    {"opUF", "opQualquerParte", "AND UF00_COML_PESS = 'JOÃO 10' ORDER BY NOME_CONH", "ORDER BY NOME_CONH"},
    {"opTelefone", "opCampoInteiro",
     "AND (TELE_0001_PESS LIKE '%JOÃO 10%' OR TELE_0002_PESS LIKE '%JOÃO 10%' OR FAX0_0001_PESS LIKE '%JOÃO 10%' OR "
     "FAX0_0002_PESS LIKE '%JOÃO 10%') ORDER BY NOME_PESS",
     " ORDER BY NOME_PESS"},
    {"opCodInterno", "opInicialCom", "AND (IDPESS LIKE '%JOÃO 10%') ORDER BY IDPESS", " ORDER BY IDPESS"},
    {"opCodExterno", "opCampoInteiro", "AND (PESS_CODI_EXTE LIKE '%JOÃO 10%') ORDER BY PESS_CODI_EXTE",
     " ORDER BY PESS_CODI_EXTE"},
};

screen::Option& option(Tela& tela, const char* nome) {
    return static_cast<screen::Option&>(tela.field(QString::fromLatin1(nome)));
}

} // namespace

/// The statements know no difference between the engines, which the same expectation for both tags fixes.
class ConsultaPessoasTest : public BuscaTest, public testing::WithParamInterface<const char*> {
  protected:
    ConsultaPessoasTest() { contexto.TipoBanco = QString::fromLatin1(GetParam()); }

    QString statementOf(const Linha& linha, const QString& texto, bool desativadas) {
        QString enviada;
        open<Tela>("frmBROWSE_PESSOAS", [&](Tela& tela) {
            option(tela, linha.forma).setValue(true);
            option(tela, linha.conteudo).setValue(true);
            tela.cboCod.setText(texto);
            if (desativadas)
                tela.chkVisualiza.setChecked(true);
            forget();
            user.click(tela.cmdPesquisa);
            enviada = database.sent.value(0);
            EXPECT_EQ(database.sent.size(), 1);
            EXPECT_EQ(platform.boxes.news(), QStringList(desativadas ? 2 : 1, nothingFound))
                << "the check box searches too";
        });
        return enviada;
    }
};

INSTANTIATE_TEST_SUITE_P(Engines, ConsultaPessoasTest, testing::Values("FIREBIRD", "MS-SQL"));

TEST_P(ConsultaPessoasTest, EveryRowOfTheOptionTable) {
    const QString texto = u"  joão 10 "_s;
    for (const Linha& linha : linhas) {
        SCOPED_TRACE(linha.comTexto);
        EXPECT_EQ(statementOf(linha, texto, false), ativos + QString::fromUtf8(linha.comTexto));
        EXPECT_EQ(contexto.VinculoAtual, u"N"_s);
        EXPECT_EQ(statementOf(linha, texto, true), desativados + QString::fromUtf8(linha.comTexto));
        EXPECT_EQ(contexto.VinculoAtual, u"S"_s);
        EXPECT_EQ(statementOf(linha, u"   "_s, false), ativos + QString::fromUtf8(linha.semTexto));
        EXPECT_EQ(statementOf(linha, {}, true), desativados + QString::fromUtf8(linha.semTexto));
    }
}

TEST_P(ConsultaPessoasTest, BranchReplacesTheStatementAndLooksAtActivePersonsOnly) {
    const Linha ramo{"opRamoAtividade", "opCampoInteiro", "", ""};
    const QString comTexto = consultaRamo + u"AND (ATIV.DESC_ATIV LIKE '%MOVEIS%') ORDER BY NOME_CONH"_s;
    EXPECT_EQ(statementOf(ramo, u"moveis"_s, false), comTexto);
    EXPECT_EQ(contexto.VinculoAtual, u"N"_s);
    EXPECT_EQ(statementOf(ramo, u"moveis"_s, true), comTexto);
    EXPECT_EQ(contexto.VinculoAtual, u"S"_s);
    EXPECT_EQ(statementOf(ramo, {}, false), consultaRamo + u"ORDER BY NOME_CONH"_s);
}

TEST_P(ConsultaPessoasTest, WildcardsAndHyphensGoAsTheyStand) {
    const Linha nome{"opNome", "opInicialCom", "", ""};
    EXPECT_EQ(statementOf(nome, u"a%b_c-d--e"_s, false),
              ativos + u"AND NOME_PESS LIKE 'A%B_C-D--E%' ORDER BY NOME_PESS"_s);
    const QString longo(10000, u'x');
    EXPECT_EQ(statementOf(nome, longo, false),
              ativos + u"AND NOME_PESS LIKE '"_s + longo.toUpper() + u"%' ORDER BY NOME_PESS"_s);
}

TEST_P(ConsultaPessoasTest, AnApostropheEndsTheProgramAndNothingOfItRuns) {
    open<Tela>("frmBROWSE_PESSOAS", [&](Tela& tela) {
        tela.cboCod.setText(u"x' or '1'='1"_s);
        forget();
        user.click(tela.cmdPesquisa);
    });
    EXPECT_TRUE(program.hasEnded());
    EXPECT_EQ(failure(), errorNumber::StatementRefused);
    EXPECT_TRUE(sentWith("PESS").isEmpty());
}

} // namespace vorta::test
