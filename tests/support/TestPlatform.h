#pragma once

#include "base/Literals.h"
#include "screen/Platform.h"
#include "screen/Screen.h"

#include <QSet>
#include <functional>
#include <queue>
#include <vector>

namespace vorta::test {

/// The outside world of a test: boxes are recorded and answered from a queue, files are names in a set or lines in a
/// map, the clock stands still. A box that asks without a waiting answer fails the test.
class TestPlatform : public screen::Platform {
  public:
    screen::Answer messageBox(const screen::Box& box) override;
    void runModal(screen::Screen& screen) override;
    void openAddress(const QString& address) override { addresses += address; }
    void progress(qint64 done, qint64 total) override { progressed.push_back({done, total}); }
    QString home() const override { return u"/vorta"_s; }
    QDateTime now() const override { return clock; }
    bool fileExists(const QString& path) const override;
    QStringList readLines(const QString& path, int most) const override;
    void removeFile(const QString& path) override { files.remove(localPath(path)); }

    void willAnswer(screen::Answer answer) { answers.push(answer); }
    /// What is done while the screen of that name is shown; it closes afterwards when that has not closed it.
    void whenShown(const QString& screen, std::function<void(screen::Screen&)> play) {
        plays[screen] = std::move(play);
    }

    QDateTime clock{QDate(2026, 11, 20), QTime(14, 30)};
    std::vector<screen::Box> boxes;
    std::queue<screen::Answer> answers;
    QStringList addresses;
    QStringList shown;
    std::vector<std::pair<qint64, qint64>> progressed;
    QMap<QString, QStringList> files; ///< path -> lines
    bool everyFileExists = false;

  private:
    std::map<QString, std::function<void(screen::Screen&)>> plays;
};

} // namespace vorta::test
