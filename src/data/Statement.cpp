#include "data/Statement.h"

#include "base/Text.h"

namespace vorta::data {

void Statement::clear() {
    text_.clear();
    values_.clear();
}

Statement& Statement::operator+=(Piece piece) {
    text_ += piece.toString();
    return *this;
}

Statement& Statement::addValue(const QString& value) {
    values_.push_back({text_.size(), value.size()});
    text_ += value;
    return *this;
}

Statement& Statement::operator+=(const Statement& other) {
    const qsizetype offset = text_.size();
    for (const ValueSpan& span : other.values_)
        values_.push_back({offset + span.start, span.length});
    text_ += other.text_;
    return *this;
}

Statement Statement::upper() const { return withText(UCase(text_)); }

Statement Statement::withText(QString text) const {
    Q_ASSERT(text.size() == text_.size());
    Statement changed;
    changed.text_ = std::move(text);
    changed.values_ = values_;
    return changed;
}

} // namespace vorta::data
