#include "screen/MaskedField.h"

#include "base/Literals.h"

#include <QRegularExpression>

#include <algorithm>

namespace vorta::screen {

namespace {

constexpr QChar digitPlace = u'#';
constexpr QChar letterPlace = u'A'; ///< of a digit or a capital
constexpr QChar prompt = u'_';

bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

bool isCapital(QChar character) {
    return character >= u'A' && character <= u'Z';
}

bool isPlace(QChar sign) {
    return sign == digitPlace || sign == letterPlace;
}

/// True for a character that fills a place of that sign.
bool fills(QChar sign, QChar character) {
    return isPlace(sign) && (isDigit(character) || (sign == letterPlace && isCapital(character)));
}

QString blankOf(QString mask) {
    return mask.replace(digitPlace, prompt).replace(letterPlace, prompt);
}

template <typename Belongs>
QString only(const QString& text, Belongs belongs) {
    QString kept;
    std::copy_if(text.begin(), text.end(), std::back_inserter(kept), belongs);
    return kept;
}

/// "1/" where two digits have their places is "01/": the day or month that was meant, instead of one whose second digit
/// is the next number's first.
bool isBegunDay(const QString& mask, const QString& text, int at) {
    return at >= 1 && mask.mid(at - 1, 3) == u"##/" && (at < 2 || !isPlace(mask[at - 2])) && isDigit(text[at - 1]) &&
           text[at] == prompt;
}

/// The place behind the last filled one, of a text that fits its mask. A mouse often leaves the cursor beyond it.
int behindContent(const QString& mask, const QString& text) {
    qsizetype end = text.size();
    while (end > 0 && !(isPlace(mask[end - 1]) && text[end - 1] != prompt))
        --end;
    return static_cast<int>(end);
}

} // namespace

MaskedField::MaskedField(Screen* screen, const char* name, const QString& mask)
    : Field(screen, name, FieldKind::Masked), mask_(mask) {
    storeText(blank());
}

QString MaskedField::blank() const {
    return blankOf(mask_);
}

bool MaskedField::takesLetters() const {
    return mask_.contains(letterPlace);
}

QChar MaskedField::folded(QChar character) const {
    const bool small = character >= u'a' && character <= u'z';
    return small && takesLetters() ? character.toUpper() : character;
}

QString MaskedField::folded(const QString& text) const {
    QString result = text;
    for (QChar& character : result)
        character = folded(character);
    return result;
}

bool MaskedField::hasPlace(QChar character) const {
    return isDigit(character) || (takesLetters() && isCapital(character));
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
        const QChar sign = mask_[at];
        const bool matches = isPlace(sign) ? fills(sign, text[at]) || text[at] == prompt : text[at] == sign;
        if (!matches)
            return false;
    }
    return true;
}

void MaskedField::setText(const QString& given) {
    const QString text = folded(given);
    if (mask_.isEmpty() || fits(text)) {
        storeText(text);
        return;
    }
    if (text.isEmpty()) {
        storeText(blank());
        return;
    }
    const QString content = pourable(text);
    storeText(content.isEmpty() ? given : poured(content));
}

QString MaskedField::pourable(const QString& text) const {
    const qsizetype places = blank().count(prompt);
    const QString content = only(text, [this](QChar character) { return hasPlace(character); });
    const QString digits = only(text, isDigit);
    const QString rest = only(text, [this](QChar character) { return !hasPlace(character); });
    const bool marksOnly =
        std::ranges::all_of(rest, [this](QChar mark) { return mark == u' ' || mask_.contains(mark); });
    if (marksOnly && content.size() == places && fits(poured(content)))
        return content;
    if (content.size() < places && follows(text))
        return content;
    const bool bare = digits.size() < places && digits.size() == text.size();
    return digits.size() == places || bare ? digits : QString();
}

QString MaskedField::poured(const QString& content) const {
    QString form = blank();
    qsizetype next = 0;
    for (qsizetype at = 0; at < mask_.size() && next < content.size(); ++at)
        if (isPlace(mask_[at]))
            form[at] = content[next++];
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

QString MaskedField::lifted(const QString& text) const {
    if (!takesLetters())
        return text;
    QString pattern;
    for (const QChar sign : mask_)
        pattern += sign == digitPlace    ? u"[0-9]"_s
                   : sign == letterPlace ? u"[0-9A-Za-z]"_s
                                         : QRegularExpression::escape(QString(sign)) + u'?';
    const QRegularExpression whole(u"(?<![0-9A-Za-z])%1(?![0-9A-Za-z])"_s.arg(pattern));
    const QRegularExpressionMatch found = whole.match(text);
    return found.hasMatch() ? found.captured() : text;
}

void MaskedField::typeCharacter(QChar typed) {
    const QChar character = folded(typed);
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
    const bool literal = !isPlace(character) && mask_.contains(character);
    if (!mask_.isEmpty() && !hasPlace(character) && !literal)
        return false;
    return !mask_.isEmpty() && fits(text()) ? putIntoForm(character) : putRaw(character);
}

bool MaskedField::putIntoForm(QChar character) {
    int at = selectionStart();
    if (!hasPlace(character)) {
        const bool stands = at < mask_.size() && mask_[at] == character;
        if (stands)
            select(at + 1, 0);
        if (stands || character != u'/' || !isBegunDay(mask_, text(), at))
            return stands;
        QString closed = text();
        closed[at] = closed[at - 1];
        closed[at - 1] = u'0';
        storeText(closed);
        select(at + 2, 0);
        return true;
    }
    at = std::min(at, behindContent(mask_, text()));
    while (at < mask_.size() && !isPlace(mask_[at]))
        ++at;
    if (at >= mask_.size() || !fills(mask_[at], character))
        return false;
    QString edited = text();
    edited[at] = character;
    storeText(edited);
    select(at + 1, 0);
    return true;
}

/// A raw text is edited as it stands, until its content finds room in the mask.
bool MaskedField::putRaw(QChar character) {
    const int form = mask_.isEmpty() ? capacity : static_cast<int>(mask_.size());
    const int limit = maxLength() > 0 ? maxLength() : form;
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
    while (at > 0 && !isPlace(mask_[at - 1]))
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
