#include "person/FichaPessoa.h"
#include "person/PessoasTest.h"

namespace vorta::test {

class Ficha : public PessoasTest {
  protected:
    /// The person of the database: each column of a plain text holds the name of its field.
    void answerPerson() {
        QStringList columns;
        QList<data::Value> row;
        for (const CampoPessoa* linha : OrdemCarga()) {
            if (columns.contains(linha->coluna->toString()))
                continue;
            columns += linha->coluna->toString();
            row += valueOf(*linha);
        }
        database.answer(u"FROM PESS WHERE IDPESS"_s, {columns, {row}});
    }

    static data::Value valueOf(const CampoPessoa& linha) {
        const QString campo = QString::fromLatin1(linha.nome);
        if (campo == u"txtRowID")
            return number(7);
        if (linha.coluna->toString().startsWith(u"data"_s, Qt::CaseInsensitive) && campo != u"mskDtNasc")
            return date(2020, 5, 17);
        switch (linha.forma) {
        case Forma::FisicaOuJuridica:
            return text("J");
        case Forma::DiaMes:
            return text("05/08");
        case Forma::CepComercial:
        case Forma::CepEntrega:
        case Forma::CepCobranca:
            return text("06010-000");
        case Forma::Vendedor:
        case Forma::TipoCliente:
        case Forma::Transportadora:
            return null();
        default:
            return text(qPrintable(u"<%1> & cia"_s.arg(campo)));
        }
    }
};

TEST_F(Ficha, HoldsEveryFieldOfTheLoadEscaped) {
    answerPerson();
    const QString html = FichaPessoa(contexto, u"7"_s);
    for (const CampoPessoa* linha : OrdemCarga()) {
        const QString campo = QString::fromLatin1(linha->nome);
        if (linha->forma == Forma::Texto || linha->forma == Forma::Aparado || linha->forma == Forma::CodigoMunicipio)
            if (!linha->coluna->toString().startsWith(u"data"_s, Qt::CaseInsensitive))
                EXPECT_TRUE(html.contains(u"&lt;%1&gt; &amp; cia"_s.arg(campo))) << campo;
    }
    EXPECT_EQ(html.count(u"06010-000"_s), 3);
    EXPECT_TRUE(html.contains(u"<b>Pessoa</b></td><td>Jurídica</td>"_s));
    EXPECT_TRUE(html.contains(u"<td>05/08</td>"_s));
    EXPECT_EQ(html.count(u"<td>17/05/2020</td>"_s), 3) << html; // inclusion, deactivation, anniversary
    EXPECT_FALSE(html.contains(u"<txt"_s));
}

TEST_F(Ficha, LeavesTheScreenAndTheMemoryOfTheSearchAlone) {
    answerPerson();
    contexto.VinculoAtual = u"S"_s;
    tela.txtDescricao.setText(u"EM EDICAO"_s);
    FichaPessoa(contexto, u"7"_s);
    EXPECT_EQ(contexto.VinculoAtual, u"S");
    EXPECT_EQ(tela.txtDescricao.text(), u"EM EDICAO");
}

TEST_F(Ficha, OfAPersonThatIsGoneIsEmpty) {
    EXPECT_EQ(FichaPessoa(contexto, u"7"_s), QString());
}

} // namespace vorta::test
