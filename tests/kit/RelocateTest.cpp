#include "kit/Relocate.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "kit/Check.h"
#include "kit/Installed.h"

#include <QFileInfo>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

QString content(const Installed& installed, const char* file) {
    return kit::LinesOf(installed.layout().config(QString::fromLatin1(file)))->join(u'\n');
}

} // namespace

TEST(Relocate, ACopyLeadsToItselfAlone) {
    const Installed copy = Installed::copyOf(Installed::plain());
    for (const char* file : {"server_aplic.ini", "server.ini", "server_cep.ini", "paths.ini"}) {
        EXPECT_FALSE(content(copy, file).contains(Installed::plain().home())) << file;
        EXPECT_TRUE(content(copy, file).contains(copy.home())) << file;
    }
    for (const kit::Finding& finding : kit::CheckInstallation(copy.home()))
        EXPECT_TRUE(finding.right) << finding.words;
}

TEST(Relocate, RightsStayAsTheyWere) {
    const Installed copy = Installed::copyOf(Installed::plain());
    EXPECT_FALSE(QFileInfo(copy.layout().config(u"server.ini"_s)).permissions() & QFile::ReadOther);
}

TEST(Relocate, AnInstallationAtItsPlaceStaysAsItIs) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QString before = content(installed, "server.ini");
    kit::Relocate(installed.home());
    EXPECT_EQ(content(installed, "server.ini"), before);
}

TEST(Relocate, ALineForAServerKeepsItsPaths) {
    const Installed first = Installed::copyOf(Installed::plain());
    const QByteArray server = "srv01^pessoas^u^s^FIREBIRD^server=srv01;database=/dados/pessoas.fdb^False^\n";
    first.write(u"config/server.ini"_s, server);
    EXPECT_EQ(content(Installed::copyOf(first), "server.ini"), QString::fromUtf8(server));
}

TEST(Relocate, AFolderWithoutInstallationIsTold) {
    const QTemporaryDir folder;
    EXPECT_THROW(kit::Relocate(folder.path()), RuntimeError);
}
