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

Statement Statement::upper() const {
    return withText(UCase(text_));
}

Statement Statement::edited(std::span<const Edit> edits) const {
    Statement changed;
    qsizetype copied = 0;
    for (const Edit& edit : edits) {
        changed.text_ += QStringView(text_).sliced(copied, edit.start - copied);
        changed.text_ += edit.text;
        copied = edit.start + edit.length;
    }
    changed.text_ += QStringView(text_).sliced(copied);

    const auto moved = [edits](qsizetype position, bool isStart) {
        qsizetype shift = 0;
        for (const Edit& edit : edits) {
            const qsizetype end = edit.start + edit.length;
            if (end < position || (end == position && (isStart || edit.length > 0)))
                shift += edit.text.size() - edit.length;
        }
        return position + shift;
    };
    for (const ValueSpan& span : values_) {
        const qsizetype start = moved(span.start, true);
        changed.values_.push_back({start, moved(span.start + span.length, false) - start});
    }
    return changed;
}

Statement Statement::withText(QString text) const {
    Q_ASSERT(text.size() == text_.size());
    Statement changed;
    changed.text_ = std::move(text);
    changed.values_ = values_;
    return changed;
}

} // namespace vorta::data
