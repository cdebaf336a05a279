#include "audit/Audit.h"
#include "audit/SampleRegister.h"
#include "firebird/FirebirdAdapter.h"

#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;
using audit::Check;

namespace {

struct Expected {
    Check check;
    QStringList lines;
};

/// All that is wrong in the sample, by check.
const std::vector<Expected>& expected() {
    static const std::vector<Expected> all{
        {Check::DocumentMissing,
         {u"2|CPF0_CNPJ|___.___.___-__|"_s, u"17|CPF0_CNPJ|00.000.000/0000-00|zeros no lugar do documento"_s,
          u"18|CPF0_CNPJ||"_s}},
        {Check::DocumentWrong,
         {u"3|CPF0_CNPJ|11.222.333/0001-82|dígito verificador errado"_s,
          u"15|CPF0_CNPJ|111.111.111-11|um só algarismo repetido"_s}},
        {Check::DocumentOfOtherKind,
         {u"4|CPF0_CNPJ|11.222.333/0001-81|CNPJ em pessoa física"_s,
          u"16|CPF0_CNPJ|834.320.989-36|CPF em pessoa jurídica"_s}},
        {Check::DocumentWithLetters,
         {u"5|CPF0_CNPJ|12.ABC.345/01DE-35|o parâmetro PESS_CNPJ_ALFANUMERICO não está em \"S\""_s}},
        {Check::DocumentUnmasked,
         {u"6|CPF0_CNPJ|11444777000161|a busca e a verificação de duplicidade procuram 11.444.777/0001-61"_s}},
        {Check::Registration, {u"3|RG00_IE00|110042490115|não segue a regra de SP"_s}},
        {Check::SameDocument, {u"1|CPF0_CNPJ|11222333000181|2 pessoas"_s, u"4|CPF0_CNPJ|11222333000181|2 pessoas"_s}},
        {Check::SameNameAndTown,
         {u"12|NOME_PESS|MARIA DA SILVA|SANTA BARBARA D OESTE|SP|2 pessoas"_s,
          u"13|NOME_PESS|MARIA DA SILVA|SANTA BARBARA D OESTE|SP|2 pessoas"_s}},
        {Check::SamePhone, {u"9|TELE/FAX0|1133334444|2 pessoas"_s, u"10|TELE/FAX0|1133334444|2 pessoas"_s}},
        {Check::SameMail, {u"10|EMAI_PESS|a@b.com|2 pessoas"_s, u"11|EMAI_PESS|a@b.com|2 pessoas"_s}},
        {Check::UnknownTown,
         {u"7|CIDA_COML_PESS|OSASCO|o estado RJ não a tem"_s, u"15|CIDA_COML_PESS|NADA|o estado XX não existe"_s,
          u"16|CIDA_COML_PESS|OSASCO|cidade sem estado"_s}},
        {Check::CodeOfOtherTown,
         {u"8|CODI_MUNI_COML_PESS|3534401|é o código de Osasco/SP; CAMPINAS/SP tem 3509502"_s,
          u"20|CODI_MUNI_ENTG_PESS|99|não é código de cidade nenhuma; CAMPINAS/SP tem 3509502"_s}},
        {Check::CodeMissing, {u"2|CODI_MUNI_COML_PESS||SAO PAULO/SP tem o código 3550308"_s}},
        {Check::PostalCode,
         {u"7|CEP0_COML_PESS|06010-000|fora de RJ"_s, u"8|CEP0_COML_PESS|13010-00|7 algarismos; um CEP tem 8"_s,
          u"20|CEP0_COBR_PESS|90010-000|fora de SP"_s}},
        {Check::Mail,
         {u"9|EMAI_PESS|joão@c.d|Foi digitado um caracter inválido no e-mail!!!"_s,
          u"20|PRIN_EMAI_CONT|a@b|O e-mail digitado tem menos de 5 caracterec!!!"_s,
          u"1|PESS_CONT 802|sem arroba|O nº de arrobas (@) do e-mail é inválido!!!"_s,
          u"1|CLIE_CONT 902|@x.y.z|O e-mail foi iniciado com uma arroba (@)!!!"_s}},
        {Check::ContactWithoutPerson,
         {u"0|PESS_CONT 801|9998|a pessoa não existe"_s, u"0|PESS_CONT 804|0|a pessoa não existe"_s}},
        {Check::BranchWithoutPerson, {u"0|PESS_ATIV 851|9997|a pessoa não existe"_s}},
        {Check::RoleWithoutPerson, {u"0|CLIE 503|9999|a pessoa não existe"_s}},
        {Check::ContactWithoutRole, {u"0|CLIE_CONT 901|9996|o vínculo não existe"_s}},
        {Check::ReferenceToNothing,
         {u"20|idClie|501|não existe em clie"_s, u"20|idVend|999|não existe em vend"_s,
          u"20|idForn|601|o vínculo é da pessoa 1"_s}},
        {Check::LinkUnreferenced,
         {u"1|CLIE 504||a coluna idClie da pessoa não o nomeia; a busca por Prospect a mostra"_s,
          u"1|FORN 601||a coluna idForn da pessoa não o nomeia; a busca por Prospect a mostra"_s}},
    };
    return all;
}

template <typename Sample>
void findsEverything() {
    Sample sample(sampleRows());
    FindingLines findings;
    qint64 told = 0;
    const audit::Extent extent = audit::AuditRegister(sample.connection(), false, findings,
                                                      [&](const QString&, qint64 done, qint64) { told = done; });
    EXPECT_EQ(extent.persons, 20);
    EXPECT_EQ(extent.deactivated, 1);
    ASSERT_EQ(expected().size(), audit::checks.size()) << "every check has its case";
    qsizetype all = 0;
    for (const Expected& each : expected()) {
        EXPECT_EQ(findings.of(each.check), each.lines) << audit::RowOf(each.check).name;
        all += each.lines.size();
    }
    EXPECT_EQ(qsizetype(findings.all.size()), all);
}

} // namespace

TEST(Audit, FindsEverythingInAnEmbeddedBase) {
    findsEverything<EmbeddedSample>();
}

TEST(Audit, FindsTheSameOnSqlServer) {
    findsEverything<SqlServerSample>();
}

TEST(Audit, ChangesNothing) {
    EmbeddedSample sample(sampleRows());
    const QString query = u"SELECT LIST(IDPESS || COALESCE(CODI_MUNI_COML_PESS, '-') || COALESCE(CPF0_CNPJ, '-')) FROM "
                          "(SELECT * FROM PESS ORDER BY IDPESS)"_s;
    const QStringList before = sample.rows(query);
    FindingLines findings;
    audit::AuditRegister(sample.connection(), false, findings);
    EXPECT_EQ(sample.rows(query), before);
}

TEST(Audit, TakesLettersWhereTheCompanyDoes) {
    EmbeddedSample sample(sampleRows());
    FindingLines findings;
    audit::AuditRegister(sample.connection(), true, findings);
    EXPECT_TRUE(findings.of(Check::DocumentWithLetters).isEmpty());
}

TEST(Audit, FindsNothingInTheDemonstrationButWhoIsThereTwice) {
    const Installed& installed = Installed::demonstration();
    data::Connection connection([](data::Engine) { return data::MakeFirebirdAdapter({}); });
    connection.Open(data::Engine::Firebird, installed.production());
    FindingLines findings;
    const audit::Extent extent = audit::AuditRegister(connection, true, findings);
    EXPECT_GT(extent.persons, 30);
    for (const audit::Finding& each : findings.all)
        EXPECT_NE(each.group, 0) << audit::RowOf(each.check).name << ' ' << each.person << ' ' << each.field << ' '
                                 << each.value << ' ' << each.words;
}
