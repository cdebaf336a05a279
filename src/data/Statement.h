#pragma once

#include <QString>
#include <concepts>
#include <span>
#include <vector>

namespace vorta::data {

/// A piece of a statement that is written in the program itself. Only a compile-time constant converts to it, so that
/// no value typed by a user or read from a table can ever pass for a piece.
class Piece {
  public:
    consteval Piece(const char* text) : text_(text) {}
    QString toString() const { return QString::fromUtf8(text_); }
    constexpr const char* utf8() const { return text_; }

  private:
    const char* text_;
};

/// Where a value stands in the text of a statement, in characters.
struct ValueSpan {
    qsizetype start = 0;
    qsizetype length = 0;
    friend bool operator==(const ValueSpan&, const ValueSpan&) = default;
};

/// A stretch of a statement's text and what stands there instead; a stretch of length 0 is an insertion.
struct Edit {
    qsizetype start = 0;
    qsizetype length = 0;
    QString text;
};

/// One statement as text with inline values, assembled piece by piece: `Piece` is program text, `QString` and numbers
/// are values. The spans of the values stay true under every change that keeps lengths (upper-casing, removal of
/// accents).
class Statement {
  public:
    Statement() = default;
    explicit Statement(Piece piece) { *this += piece; }

    void clear();
    bool isEmpty() const { return text_.isEmpty(); }

    Statement& operator+=(Piece piece);
    /// Takes a `QString` and nothing that merely converts to one, so that a literal stays a piece.
    template <std::same_as<QString> Text>
    Statement& operator+=(const Text& value) {
        return addValue(value);
    }
    Statement& operator+=(const Statement& other);
    template <std::integral Number>
    Statement& operator+=(Number value) {
        return addValue(QString::number(value));
    }
    Statement& operator<<(Piece piece) { return *this += piece; }
    Statement& operator<<(const Statement& other) { return *this += other; }
    template <typename Value>
    requires std::same_as<Value, QString> || std::integral<Value> Statement& operator<<(const Value& value) {
        return *this += value;
    }

    const QString& text() const { return text_; }
    std::span<const ValueSpan> values() const { return values_; }

    /// The statement in capitals, character by character.
    Statement upper() const;
    /// The statement with its text replaced by `change(text)`, which must keep the length.
    template <typename Change>
    Statement mapped(Change change) const {
        return withText(change(text_));
    }

    /// The statement with stretches of its text replaced, given from left to right. The values keep their spans; one
    /// that an edit lies in grows or shrinks with it. For the data layer's own work on a guarded statement: flows never
    /// edit.
    Statement edited(std::span<const Edit> edits) const;

    friend bool operator==(const Statement&, const Statement&) = default;

  private:
    Statement& addValue(const QString& value);
    Statement withText(QString text) const;

    QString text_;
    std::vector<ValueSpan> values_;
};

} // namespace vorta::data
