#include "audit/Towns.h"
#include "base/Literals.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Installed.h"
#include "kit/Loader.h"
#include "kit/Vocabulary.h"

#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

TEST(AuditedTowns, EveryTownOfTheCountryIsKnownByItsPlainName) {
    data::Connection connection([](data::Engine) { return data::MakeFirebirdAdapter({}); });
    connection.Open(data::Engine::Firebird, Installed::plain().production());
    const audit::Towns towns(connection);
    kit::Loader loader(Installed::plain().production());
    const auto rows = loader.rows(u"SELECT CODI_MUNI_IBGE, DESC_MUNI_IBGE, UF00_MUNI_IBGE FROM MUNI_IBGE"_s);
    ASSERT_GT(rows.size(), 5000u);
    for (const QStringList& row : rows) {
        EXPECT_EQ(towns.codeOf(row[1], row[2]), row[0]) << row[1];
        EXPECT_EQ(towns.codeOf(row[1].toUpper().replace(u'´', u'\''), row[2]), row[0]) << row[1];
        EXPECT_EQ(towns.placeOf(row[0]), row[1] + u'/' + row[2]);
    }
    EXPECT_EQ(towns.codeOf(u"OSASCO"_s, u"RJ"_s), std::nullopt);
    EXPECT_EQ(towns.codeOf(u""_s, u"SP"_s), std::nullopt);
    EXPECT_TRUE(towns.knowsState(u"DF"_s));
    EXPECT_FALSE(towns.knowsState(u"EX"_s));
}

TEST(AuditedTowns, TwoCodesForOneNameDecideNothing) {
    const Installed installed = Installed::copyOf(Installed::plain());
    {
        kit::Loader loader(installed.production());
        loader.run(u"INSERT INTO MUNI_IBGE (IDMUNI_IBGE, CODI_MUNI_IBGE, DESC_MUNI_IBGE, UF00_MUNI_IBGE) VALUES "
                   "(90001, '9990001', 'OSÁSCO', 'SP')"_s);
        loader.commit();
    }
    data::Connection connection([](data::Engine) { return data::MakeFirebirdAdapter({}); });
    connection.Open(data::Engine::Firebird, installed.production());
    EXPECT_EQ(audit::Towns(connection).codeOf(u"OSASCO"_s, u"SP"_s), std::nullopt);
}

TEST(PostalCodes, LieInTheirStates) {
    const std::vector<std::pair<const char*, const char*>> right{
        {"01310100", "SP"}, {"19999999", "SP"}, {"20000000", "RJ"}, {"29000000", "ES"}, {"30110000", "MG"},
        {"40000000", "BA"}, {"49000000", "SE"}, {"50000000", "PE"}, {"57000000", "AL"}, {"58000000", "PB"},
        {"59000000", "RN"}, {"60000000", "CE"}, {"64000000", "PI"}, {"65000000", "MA"}, {"66000000", "PA"},
        {"68900000", "AP"}, {"69000000", "AM"}, {"69300000", "RR"}, {"69400000", "AM"}, {"69900000", "AC"},
        {"70000000", "DF"}, {"72800000", "GO"}, {"73000000", "DF"}, {"73700000", "GO"}, {"76800000", "RO"},
        {"77000000", "TO"}, {"78000000", "MT"}, {"79000000", "MS"}, {"80000000", "PR"}, {"88000000", "SC"},
        {"99999999", "RS"}};
    for (const auto& [cep, state] : right)
        for (const auto& [other, otherState] : right)
            EXPECT_EQ(audit::PostalCodeInState(QString::fromLatin1(cep), QString::fromLatin1(otherState)),
                      QLatin1StringView(state) == QLatin1StringView(otherState))
                << cep << ' ' << otherState;
    EXPECT_TRUE(audit::PostalCodeInState(u"01310100"_s, u"XX"_s)) << "an unknown state is told elsewhere";
    EXPECT_FALSE(audit::PostalCodeInState(u"00999999"_s, u"SP"_s));
}

TEST(PostalCodes, OfTheKitsTownsLieInTheirStates) {
    for (const auto& town : kit::ReadVocabulary().towns)
        for (const auto sector : {town.firstCep, town.lastCep})
            EXPECT_TRUE(audit::PostalCodeInState(QString::number(sector).rightJustified(5, u'0') + u"000"_s,
                                                 QString::fromLatin1(town.state)))
                << town.name.constData() << ' ' << sector;
}
