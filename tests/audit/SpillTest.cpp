#include "audit/Spill.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <gtest/gtest.h>
#include <random>

using namespace vorta;
using audit::KeyOfPerson;
using audit::Spill;

TEST(Spill, GivesBackEveryKeyInOrder) {
    constexpr int count = 100'000;
    std::mt19937_64 random(7);
    std::vector<KeyOfPerson> all{{0, 1}, {~quint64(0), 2}};
    while (all.size() < count)
        all.push_back({all.size() % 3 ? quint64(random()) : all.back().hash, qint64(all.size())});
    Spill spill;
    for (const KeyOfPerson& key : all)
        spill.add(key);
    EXPECT_EQ(spill.size(), count);
    std::vector<KeyOfPerson> back;
    for (std::size_t part = 0; part < Spill::parts; ++part) {
        const std::vector<KeyOfPerson> keys = spill.take(part);
        if (!keys.empty() && !back.empty()) {
            EXPECT_LT(back.back().hash, keys.front().hash);
        }
        back.insert(back.end(), keys.begin(), keys.end());
    }
    std::ranges::sort(all);
    EXPECT_EQ(back, all);
    EXPECT_TRUE(spill.take(0).empty());
}

TEST(Spill, TellsThatNothingCanBeKept) {
    const QByteArray before = qgetenv("TMPDIR");
    qputenv("TMPDIR", "/proc"); // takes no file, not even an administrator's
    Spill spill;
    QString told;
    try {
        for (int person = 0; person < 10'000; ++person)
            spill.add({1, person});
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), errorNumber::PathRefused);
        told = error.description();
    }
    before.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
    EXPECT_TRUE(told.startsWith(u"Não foi possível gravar em /proc: "_s)) << told.toStdString();
}
