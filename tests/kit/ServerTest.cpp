#include "kit/Check.h"
#include "kit/Loader.h"
#include "kit/MoveToServer.h"

#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

TEST(Server, AnEmbeddedBaseMovesToAServerWithAllThatIsInIt) {
    const Installed installed = Installed::copyOf(Installed::demonstration());
    const servers::FirebirdServer server;
    const QString connection = test::MoveToServer(installed, server);

    for (const kit::Finding& finding : kit::CheckInstallation(installed.home()))
        EXPECT_TRUE(finding.right) << finding.words;
    kit::Loader moved(connection), original(Installed::demonstration().production());
    for (const char* query : {"SELECT COUNT(*) FROM PESS", "SELECT SUM(QTDE * VALO_LIQU) FROM PEDI_VEDS_DETA",
                              "SELECT GEN_ID(GEN_PESS, 0) FROM RDB$DATABASE",
                              "SELECT COUNT(*) FROM MUNI_IBGE WHERE DESC_MUNI_IBGE LIKE '%sao%'"})
        EXPECT_EQ(moved.rows(QString::fromLatin1(query)), original.rows(QString::fromLatin1(query))) << query;
}
