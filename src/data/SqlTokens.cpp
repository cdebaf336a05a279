#include "data/SqlTokens.h"

namespace vorta::data {

namespace {

bool isWordStart(QChar c) {
    return c.isLetter() || c == u'_' || c == u'@' || c == u'#' || c == u'$';
}
bool isWordPart(QChar c) {
    return isWordStart(c) || c.isDigit();
}
bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

class Scanner {
  public:
    explicit Scanner(QStringView text) : text_(text) {
        constexpr qsizetype usualLength = 4; // characters of a token and the blank behind it
        tokens_.reserve(static_cast<std::size_t>(text.size() / usualLength + 1));
    }

    std::vector<SqlToken> run() {
        while (true) {
            while (at_ < text_.size() && text_[at_].isSpace())
                ++at_;
            if (at_ >= text_.size())
                return std::move(tokens_);
            next();
        }
    }

  private:
    QChar peek(qsizetype ahead = 0) const { return at_ + ahead < text_.size() ? text_[at_ + ahead] : QChar(); }

    void next() {
        start_ = at_;
        const QChar c = peek();
        if (c == u'\'')
            delimited(TokenKind::Literal, u'\'');
        else if (c == u'"')
            delimited(TokenKind::QuotedName, u'"');
        else if (c == u'[')
            delimited(TokenKind::QuotedName, u']');
        else if (c == u'-' && peek(1) == u'-')
            comment(QStringView(u"\n"), true);
        else if (c == u'/' && peek(1) == u'*')
            comment(QStringView(u"*/"), false);
        else if (isWordStart(c))
            word();
        else if (isDigit(c) || (c == u'.' && isDigit(peek(1)) && !afterName()))
            number();
        else {
            ++at_;
            add(TokenKind::Symbol);
        }
    }

    void add(TokenKind kind, bool closed = true) { tokens_.push_back({kind, start_, at_ - start_, closed}); }

    /// A name before a point makes the point a qualifier, never the start of a number.
    bool afterName() const {
        return !tokens_.empty() && tokens_.back().end() == at_ && tokens_.back().kind != TokenKind::Symbol;
    }

    void delimited(TokenKind kind, QChar close) {
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] != close)
                continue;
            if (peek(1) == close) {
                ++at_;
                continue;
            }
            ++at_;
            return add(kind);
        }
        add(kind, false);
    }

    void comment(QStringView close, bool endsWithText) {
        const qsizetype found = text_.indexOf(close, at_ + 2);
        at_ = found < 0 ? text_.size() : found + close.size();
        add(TokenKind::Comment, found >= 0 || endsWithText);
    }

    void word() {
        while (at_ < text_.size() && isWordPart(text_[at_]))
            ++at_;
        add(TokenKind::Word);
    }

    void number() {
        const auto digits = [this] {
            while (isDigit(peek()))
                ++at_;
        };
        digits();
        if (peek() == u'.') {
            ++at_;
            digits();
        }
        const qsizetype sign = peek(1) == u'-' || peek(1) == u'+' ? 1 : 0;
        if ((peek() == u'e' || peek() == u'E') && isDigit(peek(1 + sign))) {
            at_ += 1 + sign;
            digits();
        }
        add(TokenKind::Number);
    }

    QStringView text_;
    qsizetype at_ = 0;
    qsizetype start_ = 0;
    std::vector<SqlToken> tokens_;
};

} // namespace

bool SqlToken::isWord(QStringView text, QLatin1StringView word) const {
    return kind == TokenKind::Word && in(text).compare(word, Qt::CaseInsensitive) == 0;
}

bool SqlToken::isSymbol(QStringView text, QChar symbol) const {
    return kind == TokenKind::Symbol && text[start] == symbol;
}

std::vector<SqlToken> SqlTokens(QStringView text) {
    return Scanner(text).run();
}

} // namespace vorta::data
