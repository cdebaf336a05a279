#include "screen/Screen.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "screen/Program.h"

#include <QScopeGuard>
#include <algorithm>

namespace vorta::screen {

namespace {

/// An option takes part in the walk by keys only when it is chosen, or when nothing of its group is.
bool passedOver(const Field& field, const std::vector<Field*>& fields) {
    const auto* option = dynamic_cast<const Option*>(&field);
    if (!option || option->value())
        return false;
    return std::any_of(fields.begin(), fields.end(), [&](const Field* other) {
        const auto* sibling = dynamic_cast<const Option*>(other);
        return sibling && sibling->group() == option->group() && sibling->value();
    });
}

} // namespace

void showPageOf(const Field& field) {
    if (TabStrip* strip = field.strip()) {
        showPageOf(*strip);
        strip->setCurrent(field.page());
    }
}

bool isInFront(const Field& field) {
    const TabStrip* strip = field.strip();
    return !strip || (strip->current() == field.page() && isInFront(*strip));
}

void selectAll(Field& field) {
    const bool takesText =
        field.kind() == FieldKind::Text || field.kind() == FieldKind::Masked || field.kind() == FieldKind::List;
    if (takesText)
        field.select(0, static_cast<int>(field.text().size()));
}

Screen::Screen(Program& program, const QString& name) : program_(program), name_(name) {}

Field* Screen::findField(const QString& name) const {
    const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const Field* field) {
        return field->name().size() == name.size() && field->name().compare(name, Qt::CaseInsensitive) == 0;
    });
    return found == fields_.end() ? nullptr : *found;
}

Field& Screen::field(const QString& name) const {
    Field* found = findField(name);
    if (!found)
        throw RuntimeError(errorNumber::NoSuchMember, u"A tela %1 não tem o campo %2"_s.arg(name_, name));
    return *found;
}

void Screen::setCaption(const QString& caption) {
    caption_ = caption;
    notify();
}

void Screen::setBackground(Colour background) {
    background_ = background;
    notify();
}

void Screen::setPlace(Place place) {
    place_ = place;
    ++placings_;
    notify();
}

void Screen::setPointer(Pointer pointer) {
    pointer_ = pointer;
    notify();
}

void Screen::notify(Field& field) {
    if (observer_)
        observer_->fieldChanged(field);
}

void Screen::notify() {
    if (observer_)
        observer_->screenChanged(*this);
}

void Screen::enter(Field* field) {
    focus_ = field;
    if (field)
        showPageOf(*field);
    notify();
    if (!field)
        return;
    if (field->selectsOnFocus)
        field->select(0, static_cast<int>(field->text().size()));
    if (field->GotFocus)
        field->GotFocus();
}

void Screen::takeFirstFocus() {
    Field* first = focus_ ? nullptr : nextField(nullptr);
    if (first && moveFocus(first))
        selectAll(*first);
}

bool Screen::moveFocus(Field* target) {
    if (target == focus_) {
        if (target)
            showPageOf(*target);
        return true;
    }
    Field* old = focus_;
    if (old)
        old->leaving();
    focus_ = target;
    requestedFocus_ = nullptr;
    {
        losingFocus_ = true;
        const auto over = qScopeGuard([&] { losingFocus_ = false; });
        if (old && old->LostFocus)
            old->LostFocus();
    }
    Field* final = requestedFocus_ ? std::exchange(requestedFocus_, nullptr) : target;
    // A field that its neighbour's LostFocus has just disabled passes the focus on, as one disabled later does.
    if (final && !final->canFocus())
        final = nextField(nullptr);
    enter(final);
    return focus_ == target;
}

void Screen::SetFocus(Field& field) {
    if (!field.canFocus())
        return;
    if (losingFocus_)
        requestedFocus_ = &field;
    else
        moveFocus(&field);
}

bool Screen::takeTabRequest() {
    return std::exchange(tabRequested_, false);
}

Field* Screen::nextField(const Field* from, bool backwards) const {
    std::vector<Field*> order = fields_;
    if (backwards)
        std::reverse(order.begin(), order.end());
    const auto start = std::find(order.begin(), order.end(), from);
    if (start != order.end())
        std::rotate(order.begin(), start + 1, order.end());
    for (Field* field : order)
        if (field != from && field->canFocus() && !field->locked() && isInFront(*field) && !passedOver(*field, fields_))
            return field;
    return nullptr;
}

void Screen::Unload() {
    if (!loaded_)
        return;
    QueryUnload();
    loaded_ = false;
    notify();
}

} // namespace vorta::screen
