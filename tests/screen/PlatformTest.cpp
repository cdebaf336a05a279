#include "base/Literals.h"
#include "support/World.h"

#include <QFile>
#include <QTemporaryDir>

using namespace vorta;
using namespace vorta::test;

namespace {

/// The real files, nothing else of the outside world.
struct Files : screen::Platform {
    screen::Answer messageBox(const screen::Box&) override { return screen::Answer::OK; }
    void runModal(screen::Screen&) override {}
    void openAddress(const QString&) override {}
    QString home() const override { return {}; }
};

struct PlatformTest : testing::Test {
    Files files;
    QTemporaryDir dir;
    QString write(const QByteArray& bytes) {
        QFile file(dir.filePath(u"teste.ini"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
};

} // namespace

TEST_F(PlatformTest, LinesOfEveryKindOfFile) {
    const QStringList linhas{u"São^1^"_s, QString(), u"último"_s};
    EXPECT_EQ(files.readLines(write("S\xC3\xA3o^1^\n\n\xC3\xBAltimo\n"), 3), linhas) << "UTF-8, LF";
    EXPECT_EQ(files.readLines(write("S\xC3\xA3o^1^\r\n\r\n\xC3\xBAltimo\r\n"), 3), linhas) << "UTF-8, CRLF";
    EXPECT_EQ(files.readLines(write("S\xE3o^1^\r\n\r\n\xFAltimo"), 3), linhas)
        << "Windows-1252, no end of the last line";
    EXPECT_EQ(files.readLines(write("\xEF\xBB\xBFS\xC3\xA3o^1^\n\n\xC3\xBAltimo"), 3), linhas) << "UTF-8 with its mark";
    EXPECT_EQ(files.readLines(write("\x80 10\n"), 1), QStringList(u"€ 10"_s));
}

TEST_F(PlatformTest, NoMoreLinesThanAskedFor) {
    EXPECT_EQ(files.readLines(write("a\nb\nc\nd\n"), 3), QStringList({u"a"_s, u"b"_s, u"c"_s}));
    EXPECT_EQ(files.readLines(write("a\n"), 3), QStringList(u"a"_s));
    EXPECT_EQ(files.readLines(write(""), 3), QStringList());
}

TEST_F(PlatformTest, BadNamesAndMissingFiles) {
    EXPECT_EQ(ErrorOf([&] { files.readLines({}, 1); }), errorNumber::BadFileName);
    EXPECT_EQ(ErrorOf([&] { files.readLines(dir.path(), 1); }), errorNumber::BadFileName);
    EXPECT_EQ(ErrorOf([&] { files.readLines(dir.filePath(u"nada.ini"_s), 1); }), errorNumber::FileNotFound);
}

TEST_F(PlatformTest, BackSlashesAreAccepted) {
    const QString path = write("x\n");
    QString windows = path;
    windows.replace(u'/', u'\\');
    EXPECT_TRUE(files.fileExists(windows));
    EXPECT_EQ(files.readLines(windows, 1), QStringList(u"x"_s));
    EXPECT_FALSE(files.fileExists(dir.path())) << "a folder is no file";
    files.removeFile(windows);
    EXPECT_FALSE(files.fileExists(path));
}
