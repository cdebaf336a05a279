#include "audit/Duplicates.h"
#include "audit/SampleRegister.h"

#include <gtest/gtest.h>

using namespace vorta;
using namespace vorta::test;
using audit::Check;

namespace {

/// So many persons who all have one phone, and two of them one document.
std::vector<SampleRows> crowd(int persons) {
    static std::vector<std::string> kept;
    kept.clear();
    for (int id = 1; id <= persons; ++id)
        kept.push_back(std::to_string(id) + ", 'PESSOA " + std::to_string(id) + "', '11 3333-4444', " +
                       (id % 300 == 7 ? "'52998224725'" : "NULL"));
    SampleRows rows{"PESS", "IDPESS, NOME_PESS, TELE_0001_PESS, CPF0_CNPJ", {}};
    for (const std::string& each : kept)
        rows.values.push_back(each.c_str());
    return {rows};
}

} // namespace

TEST(Duplicates, OfALargeGroupTheFirstAreListedAndAllAreCounted) {
    constexpr int persons = 450;
    EmbeddedSample sample(crowd(persons));
    FindingLines findings;
    audit::AuditRegister(sample.connection(), false, findings);
    const QStringList phones = findings.of(Check::SamePhone);
    ASSERT_EQ(phones.size(), audit::Duplicates::mostListed);
    EXPECT_EQ(phones.first(), u"1|TELE/FAX0|1133334444|450 pessoas"_s);
    EXPECT_EQ(findings.more[std::size_t(Check::SamePhone)], persons - audit::Duplicates::mostListed);
    EXPECT_EQ(findings.of(Check::SameDocument),
              (QStringList{u"7|CPF0_CNPJ|52998224725|2 pessoas"_s, u"307|CPF0_CNPJ|52998224725|2 pessoas"_s}));
}

TEST(Duplicates, GroupsByTheHundredComeWholeAndNumbered) {
    std::vector<std::string> kept;
    constexpr int pairs = 350;
    for (int id = 1; id <= 2 * pairs; ++id)
        kept.push_back(std::to_string(id) + ", 'N" + std::to_string(id) + "', 'm" + std::to_string(id % pairs) +
                       "@x.com'");
    SampleRows rows{"PESS", "IDPESS, NOME_PESS, EMAI_PESS", {}};
    for (const std::string& each : kept)
        rows.values.push_back(each.c_str());
    EmbeddedSample sample({rows});
    FindingLines findings;
    audit::AuditRegister(sample.connection(), false, findings);
    std::map<qint64, QStringList> groups;
    for (const audit::Finding& each : findings.all)
        if (each.check == Check::SameMail)
            groups[each.group] << each.value;
    EXPECT_EQ(groups.size(), std::size_t(pairs));
    for (const auto& [number, mails] : groups)
        EXPECT_EQ(mails, QStringList(2, mails.first())) << number;
}

TEST(Duplicates, APersonAloneIsNoTwin) {
    EmbeddedSample sample({{"PESS",
                            "IDPESS, NOME_PESS, TELE_0001_PESS, TELE_0002_PESS, FAX0_0001_PESS",
                            {"1, 'SO UMA', '11 3333-4444', '(11) 3333-4444', '1133334444'"}}});
    FindingLines findings;
    audit::AuditRegister(sample.connection(), false, findings);
    EXPECT_TRUE(findings.of(Check::SamePhone).isEmpty());
}
