#include "firebird/ClientLibrary.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

using firebird::Client;

/// Looks for the library where the variable says and ends the process: 0 found, 3 told as a connection that fails.
[[noreturn]] void lookAt(const QString& place) {
    qputenv("VORTA_FBCLIENT", QFile::encodeName(place));
    try {
        std::exit(Client().masterInterface() ? 0 : 1);
    } catch (const RuntimeError& failure) {
        std::fputs(failure.what(), stderr);
        std::exit(failure.number() == errorNumber::ConnectionFailed ? 3 : 1);
    }
}

} // namespace

TEST(ClientLibrary, ThatIsMissingIsToldWithTheVariableThatNamesIt) {
    const QTemporaryDir folder;
    EXPECT_EXIT(lookAt(folder.filePath(u"libfbclient.so.2"_s)), testing::ExitedWithCode(3),
                "A biblioteca do Firebird .*libfbclient.so.2.* VORTA_FBCLIENT");
}

TEST(ClientLibrary, ThatIsAnotherKindOfFileIsToldToo) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"libfbclient.so.2"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no library");
    file.close();
    EXPECT_EXIT(lookAt(file.fileName()), testing::ExitedWithCode(3), "A biblioteca do Firebird .*libfbclient.so.2");
}

TEST(ClientLibrary, ThatIsALibraryOfSomethingElseIsToldToo) {
    EXPECT_EXIT(lookAt(u"libm.so.6"_s), testing::ExitedWithCode(3), "A biblioteca do Firebird");
}

TEST(ClientLibrary, IsTheSystemsOwnWhenNobodyNamesOne) {
    EXPECT_EXIT(
        {
            qunsetenv("VORTA_FBCLIENT");
            std::exit(Client().masterInterface() && !Client().folder.isEmpty() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

} // namespace vorta::test
