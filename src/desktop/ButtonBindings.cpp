#include "desktop/ButtonBindings.h"

#include "desktop/Binder.h"
#include "screen/Platform.h"

#include <QButtonGroup>
#include <QEvent>
#include <QPixmap>
#include <utility>

namespace vorta::desktop {

LabelBinding::LabelBinding(Binder& binder, screen::Field& field, QLabel& label)
    : Binding(binder, field, label), label_(label) {
    label.setTextFormat(Qt::PlainText);
}

void LabelBinding::refresh() {
    Binding::refresh();
    label_.setText(field().text());
}

bool LabelBinding::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonDblClick)
        second_ = true;
    if (event->type() == QEvent::MouseButtonRelease && !std::exchange(second_, false) && field().Click)
        binder_.act([&] { binder_.user().click(field()); });
    return Binding::eventFilter(watched, event);
}

FrameBinding::FrameBinding(Binder& binder, screen::Field& field, QGroupBox& frame)
    : Binding(binder, field, frame), frame_(frame) {}

void FrameBinding::refresh() {
    Binding::refresh();
    frame_.setTitle(field().text());
}

PictureBinding::PictureBinding(Binder& binder, screen::Field& field, QLabel& label)
    : Binding(binder, field, label), label_(label) {}

void PictureBinding::refresh() {
    Binding::refresh();
    if (path_ != field().picture()) {
        path_ = field().picture();
        picture_ = QPixmap(screen::Platform::localPath(path_));
    }
    fit();
}

void PictureBinding::fit() {
    label_.setPixmap(picture_.isNull() ? QPixmap()
                                       : picture_.scaled(label_.contentsRect().size(), Qt::KeepAspectRatio,
                                                         Qt::SmoothTransformation));
}

bool PictureBinding::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        fit();
    if (event->type() == QEvent::MouseButtonRelease && !std::exchange(second_, false))
        binder_.act([&] { binder_.user().click(field()); });
    if (event->type() == QEvent::MouseButtonDblClick) {
        second_ = true;
        binder_.act([&] { binder_.user().secondPress(field()); });
    }
    return Binding::eventFilter(watched, event);
}

ButtonBinding::ButtonBinding(Binder& binder, screen::Field& field, QAbstractButton& button)
    : Binding(binder, field, button), button_(button), keys_(button.shortcut()) {
    connect(&button, &QAbstractButton::clicked, this, [this] {
        // A check box has already turned itself over; the field decides whether it stays so.
        binder_.mark(this->field());
        binder_.act([&] { binder_.user().click(this->field()); });
    });
}

void ButtonBinding::refresh() {
    Binding::refresh();
    if (button_.text() != field().text()) {
        button_.setText(field().text()); // which takes the key from the caption
        if (!keys_.isEmpty())
            button_.setShortcut(keys_);
    }
    if (std::exchange(icon_, field().picture()) != field().picture())
        button_.setIcon(QPixmap(screen::Platform::localPath(icon_))); // which reads a file once for all its buttons
}

OptionBinding::OptionBinding(Binder& binder, screen::Option& option, QRadioButton& button)
    : ButtonBinding(binder, option, button), option_(option) {
    // The group is the field's, not that of the neighbours on the form; it stays an option to helpers for the blind.
    auto* alone = new QButtonGroup(&button);
    alone->setExclusive(false);
    alone->addButton(&button);
}

void OptionBinding::refresh() {
    ButtonBinding::refresh();
    button_.setChecked(option_.value());
}

void CheckBinding::refresh() {
    ButtonBinding::refresh();
    button_.setChecked(check_.checked());
}

} // namespace vorta::desktop
