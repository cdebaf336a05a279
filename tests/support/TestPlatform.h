#pragma once

#include "base/Literals.h"
#include "screen/Platform.h"
#include "screen/Screen.h"

#include <QSet>
#include <functional>
#include <queue>
#include <vector>

namespace vorta::test {

/// The boxes that came up, in their order. To ask for one is to look at it; to count them is not.
class ShownBoxes {
  public:
    void add(const screen::Box& box) { boxes_.push_back({box, false}); }

    std::size_t size() const { return boxes_.size(); }
    bool empty() const { return boxes_.empty(); }
    const screen::Box& operator[](std::size_t at) const {
        boxes_.at(at).seen = true;
        return boxes_[at].box;
    }
    const screen::Box& front() const { return (*this)[0]; }
    const screen::Box& back() const { return (*this)[boxes_.size() - 1]; }
    /// The texts of those that nobody has looked at so far.
    QStringList news() const;
    /// All texts from now on are those of later boxes; fails the test when one of these has not been looked at.
    void clear();

  private:
    struct Shown {
        screen::Box box;
        mutable bool seen;
    };
    std::vector<Shown> boxes_;
};

/// The outside world of a test: boxes are recorded and answered from a queue, files are names in a set or lines in a
/// map, the clock stands still. What fails the test: a box that asks without a waiting answer, and at the end an answer
/// that no box has asked for and a box that nobody has looked at.
class TestPlatform : public screen::Platform {
  public:
    ~TestPlatform() override;

    screen::Answer messageBox(const screen::Box& box) override;
    void runModal(screen::Screen& screen) override;
    void openAddress(const QString& address) override { addresses += address; }
    void progress(qint64 done, qint64 total) override;
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
    ShownBoxes boxes;
    std::queue<screen::Answer> answers;
    QStringList addresses;
    QStringList shown;
    /// What was told of progress, `done` and `total`, without repetitions. That of a read whose number of rows is not
    /// known comes by the clock, and stands in `heardOfReads` instead.
    std::vector<std::pair<qint64, qint64>> progressed;
    std::vector<qint64> heardOfReads;
    std::function<void()> whenProgressed;
    QMap<QString, QStringList> files; ///< path -> lines
    bool everyFileExists = false;

  private:
    std::map<QString, std::function<void(screen::Screen&)>> plays;
};

} // namespace vorta::test
