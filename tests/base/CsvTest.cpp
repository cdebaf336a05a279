#include "base/Csv.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <QBuffer>
#include <gtest/gtest.h>

using namespace vorta;

namespace {

/// All records of a file, each with the line in which it begins.
std::vector<std::pair<qint64, QStringList>> read(QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    CsvReader reader(buffer);
    std::vector<std::pair<qint64, QStringList>> records;
    while (reader.next())
        records.emplace_back(reader.line(), reader.cells());
    return records;
}

QStringList first(const QByteArray& bytes) {
    const auto records = read(bytes);
    return records.empty() ? QStringList() : records.front().second;
}

QString wordsOf(const QByteArray& bytes) {
    try {
        read(bytes);
    } catch (const RuntimeError& fault) {
        return fault.description();
    }
    return {};
}

} // namespace

TEST(Csv, SeparatorsQuotesAndLineEnds) {
    EXPECT_EQ(first("a;b,c;d\n"), (QStringList{u"a"_s, u"b,c"_s, u"d"_s}));
    EXPECT_EQ(first("a,b,c;d\r\n"), (QStringList{u"a"_s, u"b"_s, u"c;d"_s}));
    EXPECT_EQ(first("a\tb"), (QStringList{u"a"_s, u"b"_s}));
    EXPECT_EQ(first("\"a;b\";\"c \"\"d\"\"\";e\"f\n"), (QStringList{u"a;b"_s, u"c \"d\""_s, u"e\"f"_s}));
    EXPECT_EQ(first("sep=|\r\na|b;c\r\n"), (QStringList{u"a"_s, u"b;c"_s}));
    EXPECT_EQ(first("só"), QStringList{u"só"_s});
    EXPECT_EQ(first(""), QStringList());
}

TEST(Csv, RecordsOverSeveralLinesTellWhereTheyBegin) {
    const auto records = read("a;b\n\n;;\n\"um\ndois\";x\ny;z");
    ASSERT_EQ(records.size(), 3U);
    EXPECT_EQ(records[1].first, 4);
    EXPECT_EQ(records[1].second, (QStringList{u"um\ndois"_s, u"x"_s}));
    EXPECT_EQ(records[2].first, 6);
}

TEST(Csv, EitherEncoding) {
    EXPECT_EQ(first("\xEF\xBB\xBF"
                    "ação;b"),
              (QStringList{u"ação"_s, u"b"_s}));
    EXPECT_EQ(first("a\xE7\xE3o;\x80"), (QStringList{u"ação"_s, u"€"_s}));
}

TEST(Csv, WhatIsNoSuchFileIsTold) {
    EXPECT_EQ(wordsOf(QByteArray("\xFF\xFE"
                                 "a\0",
                                 4)),
              u"O arquivo está em UTF-16; grave a planilha como CSV (UTF-8)");
    EXPECT_EQ(wordsOf(QByteArray("PK\3\4\0\0", 6)), u"Linha 1: o arquivo não é um texto; grave a planilha como CSV");
    EXPECT_EQ(wordsOf("a;b\nc;\"d\n"), u"Linha 2: há aspas abertas que não se fecham");
    EXPECT_EQ(wordsOf("a;b\n" + QByteArray(10'000'000, 'x')),
              u"Linha 2: mais de 1 MB sem fim de registro; não é uma planilha");
}

TEST(Csv, WhatIsWrittenComesBack) {
    const QStringList cells{u"=1+1"_s, u"+55 11 4000"_s, u"-12,50"_s, u"@x"_s, u"'=y"_s,    u"a;b"_s,
                            u"c\"d"_s, u"e\nf"_s,        u" g "_s,    u"'h"_s, u"ação €"_s, QString()};
    EXPECT_EQ(first(csvMark + CsvRecord(cells).toUtf8()), cells);
    EXPECT_EQ(first(CsvRecord(cells, u',').toUtf8()), cells);
}

TEST(Csv, AFormulaIsToldApartFromANumber) {
    EXPECT_EQ(CsvRecord({u"=SOMA(A1)"_s, u"-12,50"_s, u"-x"_s, u"+55 11"_s, u"\tx"_s}),
              u"'=SOMA(A1);-12,50;'-x;'+55 11;'\tx\r\n");
}
