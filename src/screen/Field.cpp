#include "screen/Field.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "screen/Program.h"
#include "screen/Screen.h"

#include <algorithm>
#include <utility>

namespace vorta::screen {

namespace {

bool isInput(FieldKind kind) {
    return kind == FieldKind::Text || kind == FieldKind::Masked || kind == FieldKind::List || kind == FieldKind::Grid;
}

} // namespace

Field::Field(Screen* screen, const char* name, FieldKind kind)
    : screen_(screen), name_(QString::fromUtf8(name)), kind_(kind),
      background_(isInput(kind) ? colour::Free : colour::ButtonFace) {
    screen_->add(this);
}

void Field::changed() {
    screen_->notify(*this);
}

void Field::storeText(const QString& text) {
    if (text_ == text)
        return;
    text_ = text;
    select(std::min<int>(selectionStart_, static_cast<int>(text_.size())), 0);
    changed();
}

void Field::setText(const QString& text) {
    storeText(text);
}

void Field::setEnabled(bool enabled) {
    enabled_ = enabled;
    changed();
}

void Field::setLocked(bool locked) {
    locked_ = locked;
    changed();
}

void Field::setVisible(bool visible) {
    visible_ = visible;
    changed();
}

void Field::setBackground(Colour background) {
    background_ = background;
    changed();
}

void Field::setForeground(Colour foreground) {
    foreground_ = foreground;
    changed();
}

void Field::setBold(bool bold) {
    bold_ = bold;
    changed();
}

void Field::setMaxLength(int characters) {
    maxLength_ = characters;
    changed();
}

void Field::setToolTip(const QString& toolTip) {
    toolTip_ = toolTip;
    changed();
}

void Field::loadPicture(const QString& path) {
    if (!screen_->program().platform().fileExists(path))
        throw RuntimeError(errorNumber::FileNotFound, u"Arquivo não encontrado: %1"_s.arg(path));
    picture_ = path;
    changed();
}

void Field::setPage(TabStrip& strip, int page) {
    strip_ = &strip;
    page_ = page;
}

void Field::select(int start, int length) {
    const int size = static_cast<int>(text_.size());
    selectionStart_ = std::clamp(start, 0, size);
    selectionLength_ = std::clamp(length, 0, size - selectionStart_);
    changed();
}

bool Field::takesFocus() const {
    return kind_ != FieldKind::Label && kind_ != FieldKind::Picture && kind_ != FieldKind::TabStrip;
}

bool Field::canFocus() const {
    return takesFocus() && enabled_ && visible_;
}

Label::Label(Screen* screen, const char* name, const QString& caption) : Field(screen, name, FieldKind::Label) {
    storeText(caption);
}

Button::Button(Screen* screen, const char* name, const QString& caption) : Field(screen, name, FieldKind::Button) {
    storeText(caption);
}

void ListField::clear() {
    items_.clear();
    listIndex_ = place_ = highlighted_ = -1;
    storeText({});
    changed();
}

void ListField::addItem(const QString& item) {
    items_ += item;
    changed();
}

void ListField::removeItem(int index) {
    if (index < 0 || index >= items_.size())
        throw RuntimeError(errorNumber::TypeMismatch);
    items_.removeAt(index);
    if (listIndex_ == index)
        listIndex_ = -1;
    else if (listIndex_ > index)
        --listIndex_;
    place_ = listIndex_;
    changed();
}

void ListField::setListIndex(int index) {
    if (index < -1 || index >= items_.size())
        throw RuntimeError(errorNumber::TypeMismatch);
    listIndex_ = place_ = index;
    before_.reset();
    if (dropDown_)
        storeText(index < 0 ? QString() : items_[index]);
    changed();
    if (index < 0 || !Click)
        return;
    Click();
    if (index < items_.size())
        place_ = index;
}

void ListField::setDropWidth(int pixels) {
    dropWidth_ = pixels;
    changed();
}

void ListField::setText(const QString& text) {
    listIndex_ = place_ = static_cast<int>(items_.indexOf(text));
    before_.reset();
    storeText(text);
}

void ListField::open() {
    if (!std::exchange(open_, true))
        before_ = text();
    highlighted_ = listIndex_;
}

void ListField::close() {
    if (!std::exchange(open_, false))
        return;
    changed();
    const std::optional<QString> before = std::exchange(before_, std::nullopt);
    if (!before || *before == text())
        return;
    setText(*before);
    select(static_cast<int>(before->size()), 0);
}

void ListField::highlight(int index) {
    highlighted_ = std::clamp(index, -1, static_cast<int>(items_.size()) - 1);
    changed();
}

std::optional<QString> ListField::completionOf(const QString& beginning) const {
    std::optional<QString> found;
    for (const QString& item : items_) {
        if (!item.startsWith(beginning, Qt::CaseInsensitive) || item == found)
            continue;
        if (found)
            return {};
        found = item;
    }
    return found;
}

Option::Option(Screen* screen, const char* name, const QString& caption, const char* group, bool value)
    : Field(screen, name, FieldKind::Option), group_(QString::fromUtf8(group)), value_(value) {
    storeText(caption);
}

void Option::setValue(bool value) {
    value_ = value;
    changed();
    if (!value)
        return;
    for (Field* other : screen().fields()) {
        auto* option = dynamic_cast<Option*>(other);
        if (option && option != this && option->group_ == group_ && option->value_)
            option->setValue(false);
    }
    if (Click)
        Click();
}

Check::Check(Screen* screen, const char* name, const QString& caption) : Field(screen, name, FieldKind::Check) {
    storeText(caption);
}

void Check::setChecked(bool checked) {
    if (checked_ == checked)
        return;
    checked_ = checked;
    changed();
    if (Click)
        Click();
}

TabStrip::TabStrip(Screen* screen, const char* name, const QStringList& captions)
    : Field(screen, name, FieldKind::TabStrip), captions_(captions) {}

void TabStrip::setCurrent(int page) {
    if (page < 0 || page >= captions_.size())
        throw RuntimeError(errorNumber::TypeMismatch);
    if (current_ == page)
        return;
    current_ = page;
    changed();
}

void TabStrip::place(const QString& caption, std::initializer_list<Field*> fields) {
    const auto page = static_cast<int>(captions_.indexOf(caption));
    Q_ASSERT(page >= 0);
    for (Field* field : fields)
        field->setPage(*this, page);
}

} // namespace vorta::screen
