#include "robot/RowText.h"

#include "base/Literals.h"
#include "base/Text.h"

namespace vorta::robot {

void RowText::beginRow() {
    if (hasRows_)
        text_ += u'\n';
    hasRows_ = true;
    hasColumns_ = false;
}

void RowText::add(const QString& value) {
    if (hasColumns_)
        text_ += u'|';
    hasColumns_ = true;
    text_ += value;
}

void RowText::null() {
    add(u"<null>"_s);
}

void RowText::integer(qint64 value) {
    add(QString::number(value));
}

void RowText::decimal(data::Decimal value) {
    if (value.scale <= 0)
        return add(QString::number(value.unscaled));
    QString digits = QString::number(std::abs(value.unscaled)).rightJustified(value.scale + 1, u'0');
    digits.insert(digits.size() - value.scale, u'.');
    add(value.unscaled < 0 ? u'-' + digits : digits);
}

void RowText::text(std::string_view utf8) {
    add(RTrim(QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()))));
}

void RowText::date(const QDateTime& value) {
    const bool timed = value.time().isValid() && value.time() != QTime(0, 0);
    add(value.toString(timed ? u"yyyy-MM-dd hh:mm:ss"_s : u"yyyy-MM-dd"_s));
}

} // namespace vorta::robot
