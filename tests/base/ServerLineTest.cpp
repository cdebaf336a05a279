#include "base/ServerLine.h"
#include "base/Literals.h"

#include <gtest/gtest.h>

using namespace vorta;

TEST(ServerLine, SevenFieldsAsWritten) {
    const ServerLine line(u"  SRV^ BASE ^sa^p w^MS-SQL^^False^  "_s);
    EXPECT_EQ(line.server, u"SRV");
    EXPECT_EQ(line.database, u" BASE ");
    EXPECT_EQ(line.user, u"sa");
    EXPECT_EQ(line.password, u"p w");
    EXPECT_EQ(line.engine, u"MS-SQL");
    EXPECT_EQ(line.firebirdConnection, QString());
    EXPECT_EQ(line.keepsAccents, u"False");
    EXPECT_TRUE(line.complete);
    EXPECT_EQ(line.text(), u"SRV^ BASE ^sa^p w^MS-SQL^^False^");
}

TEST(ServerLine, TheLastFieldNeedsNoMark) {
    const ServerLine line(u"^^^^FIREBIRD^database=/b.fdb^True"_s);
    EXPECT_EQ(line.firebirdConnection, u"database=/b.fdb");
    EXPECT_EQ(line.keepsAccents, u"True");
    EXPECT_TRUE(line.complete);
}

TEST(ServerLine, MissingFieldsArePoints) {
    const ServerLine line(u"SRV^BASE"_s);
    EXPECT_EQ(line.database, u"BASE");
    EXPECT_EQ(line.user, u".");
    EXPECT_EQ(line.keepsAccents, u".");
    EXPECT_FALSE(line.complete);
    const ServerLine closed(u"a^b^c^d^e^f^"_s);
    EXPECT_EQ(closed.keepsAccents, QString());
    EXPECT_FALSE(closed.complete);
    EXPECT_FALSE(ServerLine(QString()).complete);
}

TEST(ServerLine, AnEmptyTagMeansSqlServer) {
    EXPECT_EQ(ServerLine(u"a^b^c^d^^f^0^"_s).tag(), u"MS-SQL");
    EXPECT_EQ(ServerLine(u"a^b^c^d^FIREBIRD^f^0^"_s).tag(), u"FIREBIRD");
}
