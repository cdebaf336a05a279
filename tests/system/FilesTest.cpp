#include "system/Files.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <filesystem>
#include <gtest/gtest.h>

namespace vorta::system {

namespace {

using namespace Qt::StringLiterals;

class Files : public ::testing::Test {
  protected:
    QString file(const QString& name, const QByteArray& content = "conteúdo") {
        QFile made(folder_.filePath(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly) && made.write(content) == content.size());
        return made.fileName();
    }
    QString folder() const { return folder_.path(); }

  private:
    QTemporaryDir folder_;
};

TEST_F(Files, StateTellsOfFileAndFolder) {
    const QString path = file(u"ção.txt"_s, "12345");
    const std::optional<FileState> state = StateOf(path);
    ASSERT_TRUE(state);
    EXPECT_TRUE(state->plain);
    EXPECT_FALSE(state->folder);
    EXPECT_EQ(state->size, 5);
    EXPECT_EQ(state->names, 1U);
    ASSERT_TRUE(StateOf(folder()));
    EXPECT_TRUE(StateOf(folder())->folder);
    EXPECT_FALSE(StateOf(folder() + u"/nenhum"_s));
}

TEST_F(Files, TwoNamesOfOneFileAreTheSame) {
    const QString path = file(u"a"_s);
    const QString second = folder() + u"/b"_s;
    std::filesystem::create_hard_link(QFileInfo(path).filesystemFilePath(), QFileInfo(second).filesystemFilePath());
    ASSERT_TRUE(StateOf(path) && StateOf(second));
    EXPECT_EQ(StateOf(path)->id, StateOf(second)->id);
    EXPECT_EQ(StateOf(path)->names, 2U);
    EXPECT_NE(StateOf(path)->id, StateOf(file(u"c"_s))->id);
}

TEST_F(Files, NewFileIsMadeOnce) {
    const QString path = folder() + u"/novo"_s;
    EXPECT_TRUE(OpenFile(path, OpenFile::How::MakeNew).isOpen());
    const OpenFile second(path, OpenFile::How::MakeNew);
    EXPECT_FALSE(second.isOpen());
    EXPECT_FALSE(OpenFile(folder() + u"/nenhum"_s, OpenFile::How::Write).isOpen());
}

TEST_F(Files, ContentIsReplacedWhole) {
    const QString path = file(u"a"_s, "um texto longo");
    OpenFile open(path, OpenFile::How::Write);
    EXPECT_TRUE(open.replaceContent("curto"));
    EXPECT_EQ(open.read(100), "curto");
    EXPECT_TRUE(open.reserve(4096));
    EXPECT_EQ(open.read(5), "curto");
}

TEST_F(Files, SharedLockKeepsOutExclusiveOnes) {
    const QString path = file(u"a"_s);
    OpenFile first(path, OpenFile::How::Write);
    OpenFile second(path, OpenFile::How::Write);
    EXPECT_FALSE(second.isLockedByOthers());
    ASSERT_TRUE(first.lock(OpenFile::Lock::Exclusive));
    EXPECT_FALSE(second.lock(OpenFile::Lock::Shared));
    EXPECT_EQ(second.error(), 0);
    EXPECT_TRUE(second.isLockedByOthers());
    ASSERT_TRUE(first.lock(OpenFile::Lock::Shared));
    EXPECT_TRUE(second.lock(OpenFile::Lock::Shared));
    EXPECT_FALSE(first.lock(OpenFile::Lock::Exclusive));
    second.close();
    EXPECT_TRUE(first.lock(OpenFile::Lock::Exclusive));
}

TEST_F(Files, DiskHasRoom) {
    ASSERT_TRUE(RoomOnDiskOf(folder()));
    EXPECT_GT(*RoomOnDiskOf(folder()), 0);
}

} // namespace

} // namespace vorta::system
