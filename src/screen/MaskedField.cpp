#include "screen/MaskedField.h"

#include <algorithm>

namespace vorta::screen {

namespace {

constexpr QChar place = u'#';
constexpr QChar prompt = u'_';

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

} // namespace

MaskedField::MaskedField(Screen* screen, const char* name, const QString& mask)
    : Field(screen, name, FieldKind::Masked), mask_(mask) {
    storeText(blank());
}

QString MaskedField::blankOf(const QString& mask) const {
    QString form = mask;
    return form.replace(place, prompt);
}

QString MaskedField::blank() const {
    return blankOf(mask_);
}

bool MaskedField::isBlank() const {
    return std::none_of(text().begin(), text().end(), [](QChar character) { return character.isLetterOrNumber(); });
}

void MaskedField::setMask(const QString& mask) {
    const bool wasBlank = isBlank();
    mask_ = mask;
    if (!mask.isEmpty() && wasBlank)
        storeText(blank());
    changed();
}

bool MaskedField::fits(const QString& text) const {
    return text.size() == mask_.size() && follows(text);
}

bool MaskedField::follows(const QString& text) const {
    for (qsizetype at = 0; at < std::min(text.size(), mask_.size()); ++at) {
        const bool matches = mask_[at] == place ? isDigit(text[at]) || text[at] == prompt : text[at] == mask_[at];
        if (!matches)
            return false;
    }
    return true;
}

void MaskedField::setText(const QString& text) {
    if (mask_.isEmpty() || fits(text)) {
        storeText(text);
        return;
    }
    if (text.isEmpty()) {
        storeText(blank());
        return;
    }
    QString digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits), isDigit);
    storeText(canPour(text, digits) ? poured(digits) : text);
}

bool MaskedField::canPour(const QString& text, const QString& digits) const {
    const qsizetype places = mask_.count(place);
    if (digits.isEmpty() || digits.size() >= places)
        return digits.size() == places;
    return digits.size() == text.size() || follows(text);
}

QString MaskedField::poured(const QString& digits) const {
    QString form = blank();
    qsizetype next = 0;
    for (qsizetype at = 0; at < mask_.size() && next < digits.size(); ++at)
        if (mask_[at] == place)
            form[at] = digits[next++];
    return form;
}

void MaskedField::clearSelected() {
    const int start = selectionStart();
    const int length = selectionLength();
    if (length == 0)
        return;
    QString edited = text();
    if (mask_.isEmpty() || !fits(edited)) {
        setText(edited.remove(start, length));
    } else {
        const QString form = blank();
        for (int at = start; at < start + length; ++at)
            edited[at] = form[at];
        storeText(edited);
    }
    select(start, 0);
}

void MaskedField::typeCharacter(QChar character) {
    const QString before = text();
    const int start = selectionStart();
    const int length = selectionLength();
    clearSelected();
    if (put(character))
        return;
    storeText(before);
    select(start, length);
}

bool MaskedField::put(QChar character) {
    const bool literal = character != place && mask_.contains(character);
    if (!mask_.isEmpty() && !isDigit(character) && !literal)
        return false;
    return !mask_.isEmpty() && fits(text()) ? putIntoForm(character) : putRaw(character);
}

bool MaskedField::putIntoForm(QChar character) {
    int at = selectionStart();
    if (!isDigit(character)) {
        const bool stands = at < mask_.size() && mask_[at] == character;
        select(stands ? at + 1 : at, 0);
        return stands;
    }
    while (at < mask_.size() && mask_[at] != place)
        ++at;
    if (at >= mask_.size())
        return false;
    QString edited = text();
    edited[at] = character;
    storeText(edited);
    select(at + 1, 0);
    return true;
}

/// A raw text is edited as it stands, until its digits find room in the mask.
bool MaskedField::putRaw(QChar character) {
    const int limit = maxLength() > 0 ? maxLength() : static_cast<int>(mask_.size());
    if (limit > 0 && text().size() >= limit)
        return false;
    const int at = selectionStart();
    setText(text().left(at) + character + text().mid(at));
    select(at + 1, 0);
    return true;
}

void MaskedField::backspace() {
    if (selectionLength() > 0)
        return clearSelected();
    int at = selectionStart();
    if (mask_.isEmpty() || !fits(text())) {
        if (at > 0) {
            select(at - 1, 1);
            clearSelected();
        }
        return;
    }
    while (at > 0 && mask_[at - 1] != place)
        --at;
    if (at == 0)
        return;
    select(at - 1, 1);
    clearSelected();
}

void MaskedField::deleteForward() {
    if (selectionLength() == 0)
        select(selectionStart(), 1);
    clearSelected();
}

} // namespace vorta::screen
