#include "app/Register.h"
#include "base/Literals.h"
#include "support/RegisterWorld.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace vorta;

namespace {

#ifdef Q_OS_LINUX
/// Whether the system has mapped a file of that name into this process.
bool hasLoaded(const QByteArray& name) {
    QFile maps(u"/proc/self/maps"_s);
    EXPECT_TRUE(maps.open(QIODevice::ReadOnly));
    const QByteArray all = maps.readAll();
    EXPECT_TRUE(all.contains("libQt6Core")); // what is loaded can be seen here
    return all.contains(name);
}
#endif

} // namespace

TEST(Register, TheLaunchStringIsTheWholeCommandLine) {
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s}), u"");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1^1^PRD^False^"_s}), u"1^1^PRD^False^");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1 ^1^PRD^False^"_s}), u"1 ^1^PRD^False^");
    EXPECT_EQ(Register::launchStringOf({u"pessoas"_s, u"1"_s, u"^1^PRD^False^"_s}), u"1 ^1^PRD^False^");
}

#ifdef Q_OS_LINUX
TEST(Register, ComesToItsSqlServerWithoutTheLibraryOfFirebird) {
    test::RegisterWorld world;
    world.platform.files[u"/vorta/config/server_aplic.ini"_s] = {u"^^"_s};
    world.platform.files[u"/vorta/config/server.ini"_s] = {u"127.0.0.1,1^VORTA^vorta^vorta^MS-SQL^^False^"_s};
    world.registro.start(u"1^1^PRD^False^"_s);
    ASSERT_EQ(world.platform.boxes.size(), 1);
    EXPECT_TRUE(world.platform.boxes[0].text.startsWith(u"O Servidor de dados não está respondendo."));
    EXPECT_FALSE(hasLoaded("libfbclient"));
}
#endif
