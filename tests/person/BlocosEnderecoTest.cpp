#include "person/BlocosEndereco.h"
#include "base/Literals.h"

#include "person/PessoasTest.h"

namespace vorta::test {

using screen::Answer;

namespace {

/// The fields of a block, in the order in which they are copied.
const QStringList comercial{u"txtEndereco"_s, u"txtNumero"_s, u"txtComplemento"_s, u"txtBairro"_s,
                            u"cboCidade"_s,   u"cboUF"_s,     u"mskCEP"_s,         u"cboPais_Coml"_s};
const QStringList entrega{u"txtEnt_Endereco"_s, u"txtEnt_Numero"_s, u"txtEnt_Complemento"_s, u"txtEnt_Bairro"_s,
                          u"cboEnt_Cidade"_s,   u"cboEnt_UF"_s,     u"mskEnt_CEP"_s,         u"cboPais_Entg"_s};
const QStringList cobranca{u"txtCob_Endereco"_s, u"txtCob_Numero"_s, u"txtCob_Complemento"_s, u"txtCob_Bairro"_s,
                           u"cboCob_Cidade"_s,   u"cboCob_UF"_s,     u"mskCob_CEP"_s,         u"cboPais_Cobr"_s};

struct Bloco {
    const char* cidade;
    const char* uf;
    const char* pais;
    const char* municipio;
    const char* botaoCep;
    const char* alvo;
};

constexpr Bloco blocos[]{
    {"cboCidade", "cboUF", "cboPais_Coml", "lblCodMunIBGE", "cmdCEP", "COML"},
    {"cboEnt_Cidade", "cboEnt_UF", "cboPais_Entg", "lblEnt_CodMunIBGE", "cmdCEP_Entg", "ENTG"},
    {"cboCob_Cidade", "cboCob_UF", "cboPais_Cobr", "lblCob_CodMunIBGE", "cmdCEP_Cobr", "COBR"},
};

} // namespace

class BlocosEndereco : public PessoasTest {
  protected:
    screen::ListField& list(const char* nome) {
        return static_cast<screen::ListField&>(tela.field(QString::fromLatin1(nome)));
    }

    void fill(const QStringList& campos, const char* marca) {
        for (const QString& campo : campos)
            tela.field(campo).setText(campo.startsWith(u"msk") ? u"13010-100"_s
                                                               : QString::fromLatin1(marca) + campo.mid(3));
    }

    QStringList textsOf(const QStringList& campos) {
        QStringList lidos;
        for (const QString& campo : campos)
            lidos += tela.field(campo).text();
        return lidos;
    }
};

TEST_F(BlocosEndereco, StateListsBeginWithTheCompanysOwnStateAndABlank) {
    database.answer(u"FROM EMPR"_s, {{u"UF00_COML_EMPR"_s}, {{text("SP")}}});
    database.answer(u"FROM UF00"_s,
                    {{u"IDUF00"_s, u"CODI_UF00"_s}, {{number(1), text("AC")}, {number(2), text("SP")}}});
    tela.cboUF.setText(u"RJ"_s);
    PreencheCombosUFs(tela);
    for (const Bloco& bloco : blocos)
        EXPECT_EQ(list(bloco.uf).items(), (QStringList{u"SP"_s, u"  "_s, u"AC"_s, u"SP"_s}));
    EXPECT_EQ(tela.cboUF.text(), QString());
    EXPECT_EQ(database.sent.last(),
              u"SELECT UF00.IDUF00, UF00.CODI_UF00 FROM UF00 WHERE (UF00.DATA_DESA IS NULL) ORDER BY UF00.CODI_UF00"_s);
    EXPECT_EQ(database.sent.count(u"SELECT UF00_COML_EMPR FROM EMPR Where (EMPR.DATA_DESA Is Null)"_s), 3);
}

TEST_F(BlocosEndereco, CitiesOfTheStateThatHoldWhatWasTyped) {
    database.answer(u"SELECT * FROM MUNI_IBGE"_s, {{u"desc_muni_ibge"_s}, {{text("CAMPINAS")}, {text("CAMPO LIMPO")}}});
    for (const Bloco& bloco : blocos) {
        list(bloco.uf).setText(u"sp"_s);
        list(bloco.cidade).setText(u" camp "_s);
        forget();
        user.dropDown(list(bloco.cidade));
        ASSERT_GE(database.sent.size(), 1);
        EXPECT_EQ(database.sent.last(),
                  u"SELECT * FROM MUNI_IBGE  WHERE DATA_DESA IS NULL AND UF00_MUNI_IBGE = 'SP' AND "
                  "(MUNI_IBGE.DESC_MUNI_IBGE LIKE '%CAMP%') ORDER BY DESC_MUNI_IBGE"_s);
        EXPECT_EQ(list(bloco.cidade).items(), (QStringList{u"CAMPINAS"_s, u"CAMPO LIMPO"_s}));
    }
}

TEST_F(BlocosEndereco, CountriesThatHoldWhatWasTyped) {
    database.answer(u"FROM PAIS"_s, {{u"nome_pais"_s}, {{text("BRASIL")}}});
    for (const Bloco& bloco : blocos) {
        list(bloco.pais).setText(u"bra"_s);
        user.dropDown(list(bloco.pais));
        EXPECT_EQ(database.sent.last(),
                  u"SELECT NOME_PAIS FROM PAIS  WHERE DATA_DESA IS NULL AND (PAIS.NOME_PAIS LIKE '%BRA%') "
                  "ORDER BY NOME_PAIS"_s);
        EXPECT_EQ(list(bloco.pais).items(), QStringList{u"BRASIL"_s});
    }
}

TEST_F(BlocosEndereco, LeavingTheCitySetsTheMunicipalCodeOfItsOwnBlock) {
    database.answer(u"DESC_MUNI_IBGE = 'CAMPINAS'"_s, {{u"codi_muni_ibge"_s}, {{text("3509502")}}});
    for (const Bloco& bloco : blocos) {
        list(bloco.cidade).setText(u"campinas"_s);
        list(bloco.uf).setText(u"sp"_s);
        forget();
        user.focus(list(bloco.cidade));
        user.leave(tela);
        EXPECT_EQ(database.sent,
                  QStringList{u"SELECT CODI_MUNI_IBGE FROM MUNI_IBGE WHERE DESC_MUNI_IBGE = 'CAMPINAS' AND "
                              "UF00_MUNI_IBGE = 'SP'"_s});
        EXPECT_EQ(textOf(bloco.municipio), u"3509502"_s);
        list(bloco.cidade).setText(u"lugar nenhum"_s);
        user.focus(list(bloco.cidade));
        user.leave(tela);
        EXPECT_EQ(textOf(bloco.municipio), QString());
    }
}

TEST_F(BlocosEndereco, SaoPauloIsLookedUpWithItsAccentAndTheFieldKeepsItsText) {
    tela.cboCidade.setText(u"SAO PAULO"_s);
    tela.cboUF.setText(u"SP"_s);
    user.focus(tela.cboCidade);
    user.leave(tela);
    EXPECT_EQ(database.sent.last(),
              u"SELECT CODI_MUNI_IBGE FROM MUNI_IBGE WHERE DESC_MUNI_IBGE = 'SÃO PAULO' AND UF00_MUNI_IBGE = 'SP'"_s);
    EXPECT_EQ(tela.cboCidade.text(), u"SAO PAULO"_s);
}

TEST_F(BlocosEndereco, CopiesBetweenTheBlocks) {
    struct Copia {
        screen::Button& botao;
        const QStringList& origem;
        const QStringList& destino;
        screen::Label& municipio;
    };
    const QString question = u"Confirma Repetição do Endereço?"_s;
    fill(comercial, "C ");
    fill(entrega, "E ");
    const Copia copias[]{{tela.cmdEndEntrega, entrega, cobranca, tela.lblCob_CodMunIBGE},
                         {tela.cmdEndComl2, comercial, cobranca, tela.lblCob_CodMunIBGE},
                         {tela.cmdEndComl1, comercial, entrega, tela.lblEnt_CodMunIBGE}};
    for (const Copia& copia : copias) {
        const QStringList antes = textsOf(copia.destino);
        copia.municipio.setText(u"velho"_s);
        platform.boxes.clear();
        platform.willAnswer(Answer::No);
        click(copia.botao);
        EXPECT_EQ(textsOf(copia.destino), antes);
        platform.willAnswer(Answer::Yes);
        click(copia.botao);
        EXPECT_EQ(textsOf(copia.destino), textsOf(copia.origem));
        EXPECT_EQ(copia.municipio.text(), u"velho"_s);
        EXPECT_EQ(platform.boxes.news(), (QStringList{question, question}));
        EXPECT_EQ(platform.boxes.back().title, QString());
        EXPECT_EQ(platform.boxes.back().buttons, screen::Buttons::YesNo);
    }
    tela.mskCEP.setText({});
    platform.willAnswer(Answer::Yes);
    click(tela.cmdEndComl1);
    EXPECT_EQ(platform.boxes.news(), QStringList(question));
    EXPECT_EQ(tela.mskEnt_CEP.text(), u"_____-___"_s);
}

TEST_F(BlocosEndereco, PostalCodeButtonsTellWhichBlockAsks) {
    class Ceps : public screen::Screen {
      public:
        explicit Ceps(ContextoExecucao& dono) : Screen(dono.program(), u"frmBROWSE_CEPS"_s) {}
    };
    contexto.RegistraTela(u"frmBROWSE_CEPS"_s, [](ContextoExecucao& dono) { return std::make_unique<Ceps>(dono); });
    for (const Bloco& bloco : blocos) {
        click(static_cast<screen::Button&>(tela.field(QString::fromLatin1(bloco.botaoCep))));
        EXPECT_EQ(contexto.EnderecoAlvoCep, QString::fromLatin1(bloco.alvo));
        EXPECT_EQ(platform.shown.last(), u"frmBROWSE_CEPS"_s);
    }
}

TEST_F(BlocosEndereco, CloningTheNameByItsButton) {
    tela.txtDescricao.setText(u" Maria "_s);
    tela.txtNomeFantasia.setText(u"outro"_s);
    platform.willAnswer(Answer::No);
    click(tela.cmdClonarRazaoSocial);
    EXPECT_EQ(tela.txtNomeFantasia.text(), u"outro"_s);
    platform.willAnswer(Answer::Yes);
    click(tela.cmdClonarRazaoSocial);
    EXPECT_EQ(tela.txtNomeFantasia.text(), u" Maria "_s);
    const QString question = u"Confirma Clone: De Razao Social P/ Nome Fantasia?"_s;
    EXPECT_EQ(platform.boxes.news(), (QStringList{question, question}));
}

TEST_F(BlocosEndereco, LeavingAnEmptyTradeNameAsksInEveryState) {
    tela.txtDescricao.setText(u" joão "_s);
    platform.willAnswer(Answer::No);
    user.focus(tela.txtNomeFantasia);
    user.leave(tela);
    EXPECT_EQ(tela.txtNomeFantasia.text(), QString());
    platform.willAnswer(Answer::Yes);
    user.focus(tela.txtNomeFantasia);
    user.leave(tela);
    EXPECT_EQ(tela.txtNomeFantasia.text(), u"JOÃO"_s);
    tela.txtNomeFantasia.setText(u" casa "_s);
    user.focus(tela.txtNomeFantasia);
    user.leave(tela);
    EXPECT_EQ(tela.txtNomeFantasia.text(), u"CASA"_s);
    const QString question = u"Confirma Clone: De Razao Social P/ Nome Fantasia?"_s;
    EXPECT_EQ(platform.boxes.news(), (QStringList{question, question}));
}

} // namespace vorta::test
