// Hostile values against the guard, judged by a reader of tokens that shares nothing with it: a statement that passes
// has the shape that it has with a harmless value, whichever of the two engines reads it.

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/Guard.h"

#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

using namespace vorta;

namespace {

/// The shape of a statement: what remains when each literal is one mark and each number another. Written from the
/// engines' rules, by hand and in one pass. Empty for a statement that ends inside a literal, a name or a comment.
std::string shapeOf(const std::u16string& text) {
    std::string shape;
    std::size_t at = 0;
    const auto peek = [&](std::size_t ahead) { return at + ahead < text.size() ? text[at + ahead] : u'\0'; };
    // Behind its opening sign, up to the closing one; a doubled one belongs to the content.
    const auto through = [&](char16_t close) {
        for (++at; at < text.size(); ++at)
            if (text[at] == close) {
                if (close != u'*' && peek(1) == close)
                    ++at;
                else
                    return true;
            }
        return false;
    };
    while (at < text.size()) {
        const char16_t sign = text[at];
        if (sign == u'\'' || sign == u'"' || sign == u'[') {
            shape += sign == u'\'' ? "<L>" : "<N>";
            if (!through(sign == u'[' ? u']' : sign))
                return {};
            ++at;
        } else if (sign == u'-' && peek(1) == u'-') {
            shape += "<C>";
            while (at < text.size() && text[at] != u'\n' && text[at] != u'\r')
                ++at;
        } else if (sign == u'/' && peek(1) == u'*') {
            shape += "<C>";
            const std::size_t end = text.find(u"*/", at + 2);
            if (end == std::u16string::npos)
                return {};
            at = end + 2;
        } else if (sign >= u'0' && sign <= u'9' && (shape.empty() || shape.back() != 'w')) {
            shape += "<9>";
            while ((peek(0) >= u'0' && peek(0) <= u'9') || peek(0) == u'.')
                ++at;
        } else if (sign <= u' ') {
            if (!shape.empty() && shape.back() != ' ')
                shape += ' ';
            ++at;
        } else if ((sign | 0x20) >= u'a' && (sign | 0x20) <= u'z') {
            // Words count by their letters, so that a new one shows.
            shape += static_cast<char>(sign | 0x20);
            ++at;
        } else {
            shape += '{' + std::to_string(static_cast<int>(sign)) + '}';
            ++at;
        }
    }
    return shape;
}

/// Places of a value: in a literal, behind a prefix in a literal, as a number, and twice.
data::Statement statementWith(int place, const QString& value) {
    data::Statement statement;
    switch (place) {
    case 0:
        statement << "UPDATE PESS SET NOME_PESS='" << value << "', NOME_CONH='X' WHERE IDPESS=" << 5;
        break;
    case 1:
        statement << "SELECT * FROM PESS WHERE NOME_PESS LIKE '%" << value << "%' AND DATA_DESA IS NULL";
        break;
    case 2:
        statement << "SELECT * FROM EMPR WHERE IDEMPR = " << value << " ORDER BY 1";
        break;
    default:
        statement << "INSERT INTO PESS (NOME_PESS, NOME_CONH) VALUES ('" << value << "', '" << value << "')";
    }
    return statement;
}

bool passes(const data::Statement& statement) {
    try {
        data::GuardStatement(statement);
        return true;
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), errorNumber::StatementRefused);
        return false;
    }
}

class Values {
  public:
    QString next() {
        static const std::array<const char*, 46> pieces{"'",
                                                        "''",
                                                        "'''",
                                                        "\"",
                                                        "--",
                                                        "/*",
                                                        "*/",
                                                        ";",
                                                        "\\",
                                                        "\\'",
                                                        "[",
                                                        "]",
                                                        "(",
                                                        ")",
                                                        "=",
                                                        "%",
                                                        "_",
                                                        ",",
                                                        ".",
                                                        "+",
                                                        "-",
                                                        " ",
                                                        "\n",
                                                        "\r",
                                                        "\t",
                                                        "0",
                                                        "1",
                                                        "99999999999",
                                                        "1e9",
                                                        "0x41",
                                                        " OR 1=1",
                                                        " UNION SELECT ",
                                                        "DROP TABLE PESS",
                                                        "q'{",
                                                        "}'",
                                                        "N'",
                                                        "X'41'",
                                                        "_WIN1252 'A'",
                                                        "GO\n",
                                                        "ç",
                                                        "’",
                                                        "ʼ",
                                                        "\xEF\xBC\x87",
                                                        "ABC",
                                                        "João",
                                                        "'; DELETE FROM PESS; --"};
        QString value;
        const unsigned count = random_() % 7;
        for (unsigned i = 0; i < count; ++i) {
            const unsigned kind = random_() % 20;
            if (kind == 0)
                value += QChar(static_cast<char16_t>(random_() % 0x300));
            else if (kind == 1)
                value += QChar(static_cast<char16_t>(random_()));
            else
                value += QString::fromUtf8(pieces[random_() % pieces.size()]);
        }
        return value;
    }

  private:
    std::mt19937 random_{20261122};
};

} // namespace

TEST(GuardFuzz, NoValueChangesTheShapeOfAStatementThatPasses) {
    const bool isLong = qEnvironmentVariableIntValue("VORTA_TEST_LONG") > 0;
    const int count = isLong ? 1'000'000 : 50'000;
    std::array<std::string, 4> harmless;
    for (int place = 0; place < 4; ++place)
        harmless[static_cast<std::size_t>(place)] =
            shapeOf(statementWith(place, place == 2 ? u"1"_s : u"A"_s).text().toStdU16String());
    Values values;
    int passed = 0;
    int refusedHarmful = 0;
    for (int number = 0; number < count; ++number) {
        const QString value = values.next();
        const int place = number % 4;
        const data::Statement statement = statementWith(place, value);
        std::string shape = shapeOf(statement.text().toStdU16String());
        const std::string& expected = harmless[static_cast<std::size_t>(place)];
        if (!passes(statement)) {
            refusedHarmful += shape != expected;
            continue;
        }
        ++passed;
        // An empty number leaves its place empty, which breaks its own statement alone; a sign belongs to the number.
        if (place == 2 && shape != expected) {
            const QString bare = value.trimmed();
            const bool isNumber =
                bare.isEmpty() ||
                (QStringView(bare).sliced(bare.startsWith(u'-') || bare.startsWith(u'+')).toString().toDouble() >= 0 &&
                 !bare.contains(u'x'));
            EXPECT_TRUE(isNumber) << value.toStdString();
            continue;
        }
        ASSERT_EQ(shape, expected) << "a value got out: [" << value.toStdString() << "]";
    }
    std::printf("%d values, %d passed, %d harmful ones refused\n", count, passed, refusedHarmful);
    EXPECT_GT(passed, count / 20);
    EXPECT_GT(refusedHarmful, count / 20);
}
