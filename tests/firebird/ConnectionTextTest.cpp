#include "firebird/ConnectionText.h"

#include "base/RuntimeError.h"

#include <gtest/gtest.h>

namespace vorta::firebird {

namespace {

ConnectionText read(const char* text) {
    return ReadConnectionText(QString::fromUtf8(text));
}

} // namespace

TEST(ConnectionText, KeysInTheirSpellings) {
    const ConnectionText text =
        read("DRIVER={Firebird};DBNAME=srv:/dados/erp.fdb;UID=VORTA;PWD=a=b;ROLE=R;CHARSET=WIN1252;");
    EXPECT_EQ(text.database, u"srv:/dados/erp.fdb");
    EXPECT_EQ(text.user, u"VORTA");
    EXPECT_EQ(text.password, u"a=b");
    EXPECT_EQ(text.role, u"R");
    EXPECT_FALSE(text.embedded);
}

TEST(ConnectionText, ServerAndPortOnTheirOwn) {
    EXPECT_EQ(read("Server=srv;Port=3051;Database=/d/erp.fdb").database, u"srv/3051:/d/erp.fdb");
    EXPECT_EQ(read("Host=srv; Data Source = C:\\d\\erp.fdb").database, u"srv:C:\\d\\erp.fdb");
    EXPECT_EQ(read("Server=x;Database=srv/3050:erp").database, u"srv/3050:erp");
}

TEST(ConnectionText, FileOfThisMachine) {
    const ConnectionText text = read("Database=/d\\erp.fdb;User=;Password=");
    EXPECT_TRUE(text.embedded);
    EXPECT_EQ(text.user, u"SYSDBA");
#ifndef Q_OS_WIN
    EXPECT_EQ(text.database, u"/d/erp.fdb");
#endif
    EXPECT_EQ(read(" /d/erp.fdb ").database, u"/d/erp.fdb");
    EXPECT_TRUE(read("c:/d/erp.fdb").embedded);
    EXPECT_EQ(read("srv:/d/erp.fdb").embedded, false);
}

TEST(ConnectionText, WithoutDatabaseNothingOpens) {
    for (const char* text : {"", "   ", "User=a;Password=b", "Database=;User=a", "Server=srv"}) {
        try {
            read(text);
            ADD_FAILURE() << text;
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.number(), errorNumber::ConnectionFailed) << text;
        }
    }
}

} // namespace vorta::firebird
