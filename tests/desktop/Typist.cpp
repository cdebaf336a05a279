#include "Typist.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "desktop/ScreenWindow.h"
#include "robot/windows/SmallPicture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QRegularExpression>
#include <QScreen>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

constexpr int patience = 60000;
/// Whatever a stroke has left to do comes in front of the next one, and somebody who takes pictures waits for the
/// paint.
int betweenStrokes() {
    return qEnvironmentVariableIsEmpty("VORTA_TEST_STEPS") ? 5 : 100;
}

/// The window in front: a box, or the screen on top.
QWidget* front() {
    return QApplication::activeModalWidget() ? QApplication::activeModalWidget() : QApplication::activeWindow();
}

bool isAnyDown(const QWidget& window) {
    const auto buttons = window.findChildren<QAbstractButton*>();
    return std::ranges::any_of(buttons, &QAbstractButton::isDown);
}

/// What a keyboard sends to whatever has it.
void strike(QKeyCombination key, const QString& text) {
    QWidget* window = front();
    ASSERT_TRUE(window);
    QWidget* holder = window->focusWidget();
    QWidget* target = holder && holder->isVisible() ? holder : window;
    // The press may have closed the window that held the target.
    const QPointer<QWidget> still(target);
    QTest::sendKeyEvent(QTest::Press, target, key.key(), text, key.keyboardModifiers());
    if (still)
        QTest::sendKeyEvent(QTest::Release, target, key.key(), text, key.keyboardModifiers());
}

} // namespace

Typist::Typist(const QString& home) {
    qputenv("VORTA_HOME", home.toUtf8());
}

Typist& Typist::press(const QString& keys) {
    ++strokes_;
    const QKeyCombination key = QKeySequence(keys == u"Enter" ? u"Return"_s : keys)[0];
    steps_.push_back([key, text = keys == u"Space" ? u" "_s : QString()] { strike(key, text); });
    return *this;
}

Typist& Typist::data(const QString& text) {
    letters_ += static_cast<int>(text.size());
    for (const QChar letter : text)
        steps_.push_back([letter] { strike(Qt::Key(letter.toUpper().unicode()), letter); });
    return *this;
}

Typist& Typist::follow(const QString& keys, QStringList data, const std::map<int, QString>& pictures) {
    static const QRegularExpression left(u"\\([^)]*\\)"_s);
    static const QRegularExpression key(u"^(Enter|Tab|Esc|F\\d+|(Ctrl|Alt|Shift)\\+\\S+)$"_s);
    int done = 0;
    for (const QString& part : QString(keys).remove(left).split(u',')) {
        if (key.match(part.trimmed()).hasMatch())
            press(part.trimmed());
        else if (!data.isEmpty())
            this->data(data.takeFirst());
        else
            ADD_FAILURE() << "nothing to type for " << part;
        steps_.push_back([this] { keepStep(); });
        if (const auto found = pictures.find(++done); found != pictures.end())
            picture(found->second);
    }
    EXPECT_EQ(data.join(u' '), "") << "is not asked for";
    return *this;
}

Typist& Typist::picture(const QString& name) {
    steps_.push_back([name] {
        const QString folder = qEnvironmentVariable("VORTA_TEST_PICTURES");
        if (!folder.isEmpty())
            EXPECT_TRUE(robot::SaveSmall(front()->grab().toImage(), u"%1/%2.png"_s.arg(folder, name)));
    });
    return *this;
}

/// For somebody who looks at all of it.
void Typist::keepStep() {
    const QString folder = qEnvironmentVariable("VORTA_TEST_STEPS");
    if (folder.isEmpty())
        return;
    const auto& test = *testing::UnitTest::GetInstance()->current_test_info();
    const QImage shown = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    EXPECT_TRUE(robot::SaveSmall(
        shown, u"%1/%2-%3.png"_s.arg(folder, QLatin1StringView(test.name())).arg(++kept_, 2, 10, QChar(u'0'))));
}

Typist& Typist::then(std::function<void()> look) {
    steps_.push_back(std::move(look));
    return *this;
}

/// Nobody types before the window in front has the keyboard, as a window manager gives it, shows no button going down,
/// and is through with what it was told to do. A box that has just closed is still being left when the event loop is
/// deeper than the window in front has ever had it.
bool Typist::isReady() {
    const QWidget* window = front();
    if (!window || !window->isActiveWindow() || isAnyDown(*window))
        return false;
    const int level = QThread::currentThread()->loopLevel();
    if (levels_.try_emplace(window, level).first->second < level)
        return false;
    return window != platform_.top() || !platform_.top()->binder().busyInput().isBusy();
}

/// A step may wait in a box or screen that it has opened; the next one is already on its way then.
void Typist::next() {
    if (!isReady()) {
        if (front())
            front()->activateWindow();
        QTimer::singleShot(10, &alive_, [this] { next(); });
        return;
    }
    if (step_ == steps_.size()) {
        register_.program().dispatch([this] { register_.program().End(); });
        platform_.leaveIfEnded();
        return;
    }
    const std::function<void()>& step = steps_[step_++];
    QTimer::singleShot(betweenStrokes(), &alive_, [this] { next(); });
    try {
        step();
    } catch (const RuntimeError& error) {
        ADD_FAILURE() << "step " << step_ << ": " << error.description();
    }
}

/// As soon as the first window stands and has the keyboard.
void Typist::begin() {
    if (!platform_.top() || !platform_.top()->isVisible() || !platform_.top()->isActiveWindow()) {
        if (platform_.top())
            platform_.top()->activateWindow();
        QTimer::singleShot(20, &alive_, [this] { begin(); });
        return;
    }
    platform_.top()->complete();
    next();
}

void Typist::play() {
    begin();
    QTimer::singleShot(patience, &alive_, [this] {
        if (register_.program().hasEnded())
            return;
        ADD_FAILURE() << "stands still behind step " << step_ << " of " << steps_.size();
        register_.program().dispatch([this] { register_.program().End(); });
        platform_.leaveIfEnded();
    });
    register_.start(u"1^1^PRD^False^"_s);
    EXPECT_EQ(step_, steps_.size());
    EXPECT_FALSE(register_.program().failure()) << register_.program().failure()->description();
}

screen::Field& Typist::field(const QString& name) {
    return platform_.top()->binder().screen().field(name);
}

} // namespace vorta::test
