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
