#include "desktop/MessageBox.h"

#include "desktop/Style.h"
#include "screen/Program.h"

#include <QApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <algorithm>
#include <span>

namespace vorta::desktop {

namespace {

using screen::Answer;

constexpr char answerProperty[] = "answer";

struct Choice {
    Answer answer;
    const char* caption;
    QMessageBox::ButtonRole role;
};
constexpr Choice okOnly[]{{Answer::OK, "OK", QMessageBox::AcceptRole}};
// The toolkit makes Escape of a lone "No" or "Reject"; of two of a kind it does not.
constexpr Choice yesNo[]{{Answer::Yes, "&Sim", QMessageBox::YesRole}, {Answer::No, "&Não", QMessageBox::YesRole}};
constexpr Choice yesNoCancel[]{{Answer::Yes, "&Sim", QMessageBox::YesRole},
                               {Answer::No, "&Não", QMessageBox::NoRole},
                               {Answer::Cancel, "&Cancela", QMessageBox::RejectRole}};

/// A key that is still down from before, or held down, answers nothing: the box would be gone before it is read.
class OnlyFreshKeys : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject*, QEvent* event) override {
        return event->type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(*event).isAutoRepeat();
    }
};

std::span<const Choice> choicesOf(screen::Buttons buttons) {
    switch (buttons) {
    case screen::Buttons::YesNo:
        return yesNo;
    case screen::Buttons::YesNoCancel:
        return yesNoCancel;
    case screen::Buttons::OK:
        break;
    }
    return okOnly;
}

QMessageBox::Icon iconOf(screen::Icon icon) {
    switch (icon) {
    case screen::Icon::Information:
        return QMessageBox::Information;
    case screen::Icon::Critical:
        return QMessageBox::Critical;
    case screen::Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

namespace {

/// Room for the whole title beside the frame's own buttons.
void widenForTitle(QMessageBox& shown) {
    const int least = std::min(WidthForTitle(shown.windowTitle()), shown.screen()->availableSize().width() * 9 / 10);
    auto* grid = qobject_cast<QGridLayout*>(shown.layout());
    grid->addItem(new QSpacerItem(least, 0), grid->rowCount(), 0, 1, grid->columnCount());
}

} // namespace

std::unique_ptr<QMessageBox> MakeMessageBox(const screen::Box& box, QWidget* parent) {
    auto shown = std::make_unique<QMessageBox>(parent);
    const std::optional<Answer> escape = screen::EscapeAnswer(box.buttons);
    if (!escape)
        shown->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                              Qt::MSWindowsFixedSizeDialogHint);
    shown->setTextFormat(Qt::PlainText);
    shown->setWindowTitle(box.title.isEmpty() ? screen::Program::applicationTitle() : box.title);
    shown->setText(box.text);
    shown->setIcon(iconOf(box.icon));
    auto* fresh = new OnlyFreshKeys(shown.get());
    shown->installEventFilter(fresh);
    for (const Choice& choice : choicesOf(box.buttons)) {
        QPushButton* button = shown->addButton(QString::fromUtf8(choice.caption), choice.role);
        button->installEventFilter(fresh);
        button->setProperty(answerProperty, static_cast<int>(choice.answer));
        if (!shown->defaultButton())
            shown->setDefaultButton(button);
        if (choice.answer == escape)
            shown->setEscapeButton(button);
    }
    widenForTitle(*shown); // last, as the box lays itself out anew for what it is given
    return shown;
}

QAbstractButton* ButtonOf(const QMessageBox& shown, Answer answer) {
    for (QAbstractButton* button : shown.buttons())
        if (button->property(answerProperty).toInt() == static_cast<int>(answer))
            return button;
    return nullptr;
}

Answer AnswerOf(const QMessageBox& shown) {
    const QAbstractButton* clicked = shown.clickedButton() ? shown.clickedButton() : shown.buttons().constLast();
    return static_cast<Answer>(clicked->property(answerProperty).toInt());
}

} // namespace vorta::desktop
