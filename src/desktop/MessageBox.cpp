#include "desktop/MessageBox.h"

#include "screen/Program.h"

#include <QMessageBox>
#include <QPushButton>
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
constexpr Choice yesNoCancel[]{{Answer::Yes, "&Sim", QMessageBox::YesRole},
                               {Answer::No, "&Não", QMessageBox::NoRole},
                               {Answer::Cancel, "&Cancela", QMessageBox::RejectRole}};

std::span<const Choice> choicesOf(screen::Buttons buttons) {
    switch (buttons) {
    case screen::Buttons::YesNo:
        return std::span(yesNoCancel).first(2);
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

std::unique_ptr<QMessageBox> MakeMessageBox(const screen::Box& box, QWidget* parent) {
    auto shown = std::make_unique<QMessageBox>(parent);
    shown->setTextFormat(Qt::PlainText);
    shown->setWindowTitle(box.title.isEmpty() ? screen::Program::applicationTitle() : box.title);
    shown->setText(box.text);
    shown->setIcon(iconOf(box.icon));
    for (const Choice& choice : choicesOf(box.buttons)) {
        QPushButton* button = shown->addButton(QString::fromUtf8(choice.caption), choice.role);
        button->setProperty(answerProperty, static_cast<int>(choice.answer));
        if (!shown->defaultButton())
            shown->setDefaultButton(button);
        shown->setEscapeButton(button); // the last one stays
    }
    return shown;
}

QAbstractButton* ButtonOf(const QMessageBox& shown, Answer answer) {
    for (QAbstractButton* button : shown.buttons())
        if (button->property(answerProperty).toInt() == static_cast<int>(answer))
            return button;
    return nullptr;
}

Answer AnswerOf(const QMessageBox& shown) {
    const QAbstractButton* clicked = shown.clickedButton() ? shown.clickedButton() : shown.escapeButton();
    return static_cast<Answer>(clicked->property(answerProperty).toInt());
}

} // namespace vorta::desktop
