#include "person/CamposPessoa.h"
#include "kit/Schema.h"
#include "person/PessoasTest.h"

#include <QSet>

namespace vorta::test {

class CamposDaPessoa : public PessoasTest {
  protected:
    /// What the binding of a screen to the table says, "número descrição"; empty when all is well.
    static QString bindingFailure(const screen::Screen& tela) {
        try {
            LigaCampos(tela);
        } catch (const RuntimeError& erro) {
            return u"%1 %2"_s.arg(erro.number()).arg(erro.description());
        }
        return {};
    }
};

TEST_F(CamposDaPessoa, AnInputFieldWithoutARowFailsWithItsName) {
    struct TelaComCampoNovo : TelaSemLancamento {
        using TelaSemLancamento::TelaSemLancamento;
        screen::TextField txtNovo{this, "txtNovo"};
    } nova{contexto};
    EXPECT_EQ(bindingFailure(tela), QString());
    EXPECT_EQ(bindingFailure(nova), u"438 O campo txtNovo da tela frmPessoas não tem linha");
}

TEST_F(CamposDaPessoa, ARowWithoutItsFieldFailsWithItsName) {
    const screen::Screen outra(program, u"frmOutra"_s);
    EXPECT_EQ(bindingFailure(outra), u"438 A tela frmOutra não tem o campo txtRowID");
}

TEST_F(CamposDaPessoa, NoFieldHasTwoRows) {
    QSet<const screen::Field*> vistos;
    for (const CampoLigado& ligado : LigaCampos(tela)) {
        EXPECT_FALSE(vistos.contains(ligado.campo)) << ligado.linha->nome;
        vistos.insert(ligado.campo);
    }
}

/// An installation of the kit has every column, with room for what the field takes.
TEST_F(CamposDaPessoa, EveryColumnStandsInTheTable) {
    const kit::Table* pess = kit::FindTable(u"PESS"_s);
    ASSERT_TRUE(pess);
    for (const CampoPessoa& linha : CamposPessoa()) {
        if (!linha.coluna)
            continue;
        const kit::Column* coluna = pess->column(linha.coluna->toString());
        ASSERT_TRUE(coluna) << linha.nome;
        if (coluna->kind != kit::Kind::Text)
            continue;
        const screen::FieldKind tipo = tela.field(QString::fromLatin1(linha.nome)).kind();
        const bool digitado = linha.grava != Gravacao::Nunca && linha.forma != Forma::FisicaOuJuridica &&
                              (tipo == screen::FieldKind::Text || tipo == screen::FieldKind::List);
        EXPECT_GE(coluna->length, linha.tamanho > 0 || !digitado ? linha.tamanho : linha.capacidade) << linha.nome;
    }
}

} // namespace vorta::test
