#include "system/Failures.h"

#include "system/Files.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace vorta::system {

using namespace Qt::StringLiterals;

TEST(Failures, AreTheSystemsOwn) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a"_s);
    const OpenFile none(path, OpenFile::How::Write);
    EXPECT_EQ(FailureOf(none.error()), Failure::NoFile);
    const OpenFile made(path, OpenFile::How::MakeNew);
    EXPECT_TRUE(made.isOpen());
    const OpenFile again(path, OpenFile::How::MakeNew);
    EXPECT_EQ(FailureOf(again.error()), Failure::FileExists);
    EXPECT_EQ(FailureOf(0), Failure::Other);
}

} // namespace vorta::system
