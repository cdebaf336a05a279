#include "support/TestPlatform.h"

#include "base/RuntimeError.h"
#include "screen/Program.h"

#include <gtest/gtest.h>

namespace vorta::test {

using screen::Answer;

QStringList ShownBoxes::news() const {
    QStringList texts;
    for (const Shown& shown : boxes_)
        if (!std::exchange(shown.seen, true))
            texts += shown.box.text;
    return texts;
}

void ShownBoxes::clear() {
    for (const QString& text : news())
        ADD_FAILURE() << "a box that nobody has looked at: " << text;
    boxes_.clear();
}

TestPlatform::~TestPlatform() {
    boxes.clear();
    if (!answers.empty())
        ADD_FAILURE() << answers.size() << " answers that no box has asked for";
}

Answer TestPlatform::messageBox(const screen::Box& box) {
    boxes.add(box);
    if (box.buttons == screen::Buttons::OK)
        return Answer::OK;
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected question: " << box.text;
        return Answer::No;
    }
    const Answer answer = answers.front();
    answers.pop();
    return answer;
}

void TestPlatform::runModal(screen::Screen& screen) {
    shown += screen.name();
    const auto play = plays.find(screen.name());
    if (play == plays.end())
        return;
    play->second(screen);
    if (!screen.program().hasEnded())
        screen.Unload();
}

void TestPlatform::progress(qint64 done, qint64 total) {
    const std::pair told(done, total);
    if (total == screen::unknownTotal)
        heardOfReads.push_back(done);
    else if (progressed.empty() || progressed.back() != told)
        progressed.push_back(told);
    if (whenProgressed)
        whenProgressed();
}

bool TestPlatform::fileExists(const QString& path) const {
    return everyFileExists || files.contains(localPath(path));
}

QStringList TestPlatform::readLines(const QString& path, int most) const {
    if (path.isEmpty())
        throw RuntimeError(errorNumber::BadFileName);
    const auto file = files.find(localPath(path));
    if (file == files.end())
        throw RuntimeError(errorNumber::FileNotFound);
    return file->first(std::min<qsizetype>(most, file->size()));
}

} // namespace vorta::test
