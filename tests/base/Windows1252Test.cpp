#include "base/Windows1252.h"
#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <gtest/gtest.h>

using namespace vorta;

TEST(Windows1252, RepertoireOfTheData) {
    EXPECT_TRUE(InRepertoire(u"ação € “aspas” ´"_s));
    EXPECT_FALSE(InRepertoire(u"日本"_s));
    EXPECT_FALSE(InRepertoire(QChar(0x81)));
    EXPECT_TRUE(InRepertoire(QChar(0xA0)));
    EXPECT_EQ(OnlyRepertoire(u"a日b"_s), u"ab"_s);
}

TEST(Windows1252, WhatIsNearestToATextInTheRepertoire) {
    const std::pair<QString, QString> texts[] = {
        {u"ação € “aspas” ´"_s, u"ação € “aspas” ´"_s},
        {u"a\u0303 e\u0301"_s, u"ã é"_s},             // letter and accent apart
        {u"Dvořák ŞTEFAN Ặ"_s, u"Dvorák STEFAN A"_s}, // accents that the set does not have
        {u"Łódź Đ ı"_s, u"Lódz D i"_s},               // strokes
        {u"ﬁm ﬄ ℡"_s, u"fim ffl TEL"_s},              // ligatures
        {u"a\u2009b\u3000c\u00A0d"_s, u"a b c d"_s},  // blanks of other widths
        {u"1\u20112 \u22123 ⅓"_s, u"1-2 -3 1/3"_s},   // hyphens and strokes
        {u"Ａ１"_s, u"A1"_s},                         // wide forms
        {QString::fromUcs4(U"\U0001D400z"), u"Az"_s}, // beyond 16 bits
        {u"a日b\u200B\u0301\u02D8\u00AD"_s, u"ab"_s}, // nothing near
        {u"d＇agua"_s, u"dagua"_s},                   // no apostrophe of its own making
    };
    for (const auto& [text, nearest] : texts)
        EXPECT_EQ(OnlyRepertoire(text), nearest) << text.toStdString();
    for (char32_t code = 0; code < 0x20000; ++code) {
        if (code >= 0xD800 && code < 0xE000)
            continue;
        const QString nearest = OnlyRepertoire(QString::fromUcs4(&code, 1));
        ASSERT_TRUE(InRepertoire(nearest)) << static_cast<unsigned>(code);
        ASSERT_TRUE(code == u'\'' || !nearest.contains(u'\'')) << static_cast<unsigned>(code);
    }
}

TEST(Windows1252, EveryByteOfTheSetComesBack) {
    for (int byte = 0; byte <= 0xFF; ++byte) {
        const QByteArray bytes(1, static_cast<char>(byte));
        const QString text = FromWindows1252(bytes);
        const bool open = byte == 0x81 || byte == 0x8D || byte == 0x8F || byte == 0x90 || byte == 0x9D;
        ASSERT_EQ(InRepertoire(text), !open) << byte;
        if (!open)
            EXPECT_EQ(ToWindows1252(text), bytes) << byte;
        else
            EXPECT_EQ(text, QString(QChar(byte)));
    }
}

TEST(Windows1252, TextOutsideRaisesTypeMismatch) {
    try {
        ToWindows1252(u"a日b"_s);
        FAIL() << "written";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.number(), errorNumber::TypeMismatch);
    }
}

TEST(Windows1252, TextIsUtf8WhereItCanBe) {
    EXPECT_EQ(DecodedText("a\xC3\xA7\xC3\xA3o"), u"ação"_s);
    EXPECT_EQ(DecodedText("a\xE7\xE3o \x80"), u"ação €"_s);
    EXPECT_EQ(DecodedText(""), QString());
}
