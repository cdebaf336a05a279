#include "SampleScreen.h"
#include "base/Literals.h"

using namespace vorta;
using namespace vorta::test;

namespace {

/// What a mask shows for a text given to it.
struct Dado {
    const char* mascara;
    const char* texto;
    const char* mostrado;
};

} // namespace

TEST(MaskedField, BlankForms) {
    SampleWorld world;
    const std::vector<std::pair<const char*, const char*>> casos{{"#####-###", "_____-___"},
                                                                 {"##/##", "__/__"},
                                                                 {"###.###.###-##", "___.___.___-__"},
                                                                 {"##.###.###/####-##", "__.___.___/____-__"}};
    for (const auto& [mascara, vazio] : casos) {
        world.tela.mskCEP.setMask(QString::fromUtf8(mascara));
        EXPECT_EQ(world.tela.mskCEP.text(), QString::fromUtf8(vazio));
        EXPECT_EQ(world.tela.mskCEP.blank(), QString::fromUtf8(vazio));
        EXPECT_TRUE(world.tela.mskCEP.isBlank());
    }
}

TEST(MaskedField, TextsThatFitPourOrStayRaw) {
    SampleWorld world;
    const std::vector<Dado> casos{
        {"#####-###", "11015-200", "11015-200"},
        {"#####-###", "11015200", "11015-200"},
        {"#####-###", "110", "110__-___"},
        {"#####-###", "11015-20", "11015-20_"},
        {"#####-###", "11.015-20", "11.015-20"},
        {"#####-###", "11015/200", "11015-200"},
        {"#####-###", "110__-___", "110__-___"},
        {"#####-###", "110152001", "110152001"},
        {"#####-###", "ABC", "ABC"},
        {"#####-###", "", "_____-___"},
        {"##/##", "5/11", "5/11"},
        {"###.###.###-##", "11144477735", "111.444.777-35"},
        {"##.###.###/####-##", "11222333000181", "11.222.333/0001-81"},
        {"##.###.###/####-##", "529.982.247-25", "529.982.247-25"},
        {"###.###.###-##", "11.222.333/0001-81", "11.222.333/0001-81"},
        {"", "qualquer coisa", "qualquer coisa"},
        {"", "", ""},
    };
    for (const Dado& caso : casos) {
        MaskedField& campo = world.tela.mskCEP;
        campo.setMask({});
        campo.setText({});
        campo.setMask(QString::fromUtf8(caso.mascara));
        campo.setText(QString::fromUtf8(caso.texto));
        EXPECT_EQ(campo.text(), QString::fromUtf8(caso.mostrado)) << caso.mascara << " <- " << caso.texto;
    }
}

TEST(MaskedField, AnEmptyMaskGivesTheTextAsShown) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    campo.setText(u"11015200"_s);
    campo.setMask({});
    EXPECT_EQ(campo.text(), u"11015-200"_s);
    campo.setMask(u"##/##"_s);
    EXPECT_EQ(campo.text(), u"11015-200"_s) << "a new mask keeps a text";
    campo.setText({});
    campo.setMask({});
    EXPECT_EQ(campo.text(), u"__/__"_s);
    campo.setMask(u"#####-###"_s);
    EXPECT_EQ(campo.text(), u"_____-___"_s) << "a blank text becomes the new blank form";
}

TEST(MaskedField, DigitsFillThePlacesAndPassTheMarks) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    world.user.type(campo, u"11015200"_s);
    EXPECT_EQ(campo.text(), u"11015-200"_s);
    world.user.type(campo, u"12345-678"_s);
    EXPECT_EQ(campo.text(), u"12345-678"_s) << "a mark typed in its place is passed over";
    world.user.type(campo, u"1a2b"_s);
    EXPECT_EQ(campo.text(), u"12___-___"_s) << "letters are refused";
    world.user.type(campo, u"1234567890"_s);
    EXPECT_EQ(campo.text(), u"12345-678"_s) << "no place is left for the last two";
}

TEST(MaskedField, ADayOfOneDigitIsClosedByItsMark) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    campo.setMask(u"##/##/####"_s);
    world.user.type(campo, u"1/2/2026"_s);
    EXPECT_EQ(campo.text(), u"01/02/2026"_s);
    world.user.type(campo, u"11/2/"_s);
    EXPECT_EQ(campo.text(), u"11/02/____"_s);
    world.user.type(campo, u"/3"_s);
    EXPECT_EQ(campo.text(), u"3_/__/____"_s) << "a mark that closes nothing is refused";
    world.user.type(campo, {});
    world.user.paste(campo, u"5/11/2026"_s);
    EXPECT_EQ(campo.text(), u"05/11/2026"_s);
    campo.setMask(u"##.###.###/####-##"_s);
    world.user.type(campo, u"1.2/3-4"_s);
    EXPECT_EQ(campo.text(), u"12.34_.___/____-__"_s) << "numbers have no days";
}

TEST(MaskedField, BackspaceAndDeleteLeaveTheMarks) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    world.user.type(campo, u"123456"_s);
    EXPECT_EQ(campo.text(), u"12345-6__"_s);
    world.user.key(campo, Key::Backspace);
    world.user.key(campo, Key::Backspace);
    EXPECT_EQ(campo.text(), u"1234_-___"_s);
    campo.select(0, 2);
    world.user.key(campo, Key::Delete);
    EXPECT_EQ(campo.text(), u"__34_-___"_s);
    world.user.type(campo, {});
    EXPECT_EQ(campo.text(), u"_____-___"_s);
}

TEST(MaskedField, WithoutAMaskItIsAPlainTextWithALimit) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    campo.setMask({});
    campo.setText({});
    campo.setMaxLength(4);
    world.user.type(campo, u"AB-12"_s);
    EXPECT_EQ(campo.text(), u"AB-1"_s);
    world.user.key(campo, Key::Backspace);
    EXPECT_EQ(campo.text(), u"AB-"_s);
}

TEST(MaskedField, WhatIsTypedBehindTheContentFollowsIt) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    world.user.focus(campo);
    campo.select(9, 0);
    world.user.character(campo, u'1');
    EXPECT_EQ(campo.text(), u"1____-___"_s);
    EXPECT_EQ(campo.selectionStart(), 1);
    campo.select(7, 0);
    world.user.paste(campo, u"3010-0"_s);
    EXPECT_EQ(campo.text(), u"13010-0__"_s);
    campo.select(1, 0);
    world.user.character(campo, u'9');
    EXPECT_EQ(campo.text(), u"19010-0__"_s) << "a cursor inside the content stays there";
    campo.setText(u"13010-000"_s);
    campo.select(9, 0);
    world.user.character(campo, u'5');
    EXPECT_EQ(campo.text(), u"13010-000"_s);
    campo.setText({});
    campo.select(7, 2);
    world.user.character(campo, u'5');
    EXPECT_EQ(campo.text(), u"5____-___"_s) << "behind a selection of empty places as well";
}

TEST(MaskedField, ARawTextIsEditedUntilItFits) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    campo.setText(u"110152001"_s);
    world.user.focus(campo);
    campo.select(9, 0);
    world.user.character(campo, u'9');
    EXPECT_EQ(campo.text(), u"110152001"_s) << "no more than the mask holds, and nothing thrown away";
    world.user.key(campo, Key::Backspace);
    EXPECT_EQ(campo.text(), u"11015-200"_s);
    campo.setText(u"ABC"_s);
    world.user.type(campo, u"12345678"_s);
    EXPECT_EQ(campo.text(), u"12345-678"_s) << "typed over as a whole";
    campo.setText(u"ABC"_s);
    world.user.type(campo, {});
    EXPECT_EQ(campo.text(), u"_____-___"_s);
}

TEST(MaskedField, ARefusedCharacterTakesNothingAway) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    campo.setText(u"13010-000"_s);
    world.user.focus(campo);
    for (const QChar refused : {u'x', u'#', u'-'}) {
        campo.select(0, 9);
        world.user.character(campo, refused);
        EXPECT_EQ(campo.text(), u"13010-000"_s);
        EXPECT_EQ(campo.selectionLength(), 9);
    }
    world.user.paste(campo, u"04567-890"_s);
    EXPECT_EQ(campo.text(), u"04567-890"_s);
}

TEST(MaskedField, ARawTextHoldsTheLimitOfItsField) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    campo.setMaxLength(12);
    campo.setText(u"110152001"_s);
    world.user.focus(campo);
    campo.select(9, 0);
    for (int typed = 0; typed < 20; ++typed)
        world.user.character(campo, u'9');
    EXPECT_EQ(campo.text(), u"110152001999"_s);
    world.user.paste(campo, QString(10000, u'9'));
    EXPECT_EQ(campo.text(), u"110152001999"_s);
}

namespace {

const QString comLetras = u"AA.AAA.AAA/AAAA-##"_s;

/// A field whose mask takes letters, with the focus.
MaskedField& campoComLetras(SampleWorld& world) {
    MaskedField& campo = world.tela.mskCEP;
    campo.setMask({});
    campo.setText({});
    campo.setMask(comLetras);
    world.user.focus(campo);
    return campo;
}

} // namespace

TEST(MaskedFieldWithLetters, TextsThatFitPourOrStayRaw) {
    const std::vector<std::pair<const char*, const char*>> casos{
        {"", "__.___.___/____-__"},
        {"12.ABC.345/01DE-35", "12.ABC.345/01DE-35"},
        {"12.abc.345/01de-35", "12.ABC.345/01DE-35"},
        {"12ABC34501DE35", "12.ABC.345/01DE-35"},
        {"12abc34501de35", "12.ABC.345/01DE-35"},
        {" 12ABC345/01DE-35 ", "12.ABC.345/01DE-35"},
        {"12.AB_.___/____-__", "12.AB_.___/____-__"},
        {"12.AB", "12.AB_.___/____-__"},
        {"11222333000181", "11.222.333/0001-81"},
        {"11x222x333x0001x81", "11.222.333/0001-81"},
        {"112223330001", "11.222.333/0001-__"},
        {"529.982.247-25", "529.982.247-25"},
        {"12.ABC.345/01DE-3X", "12.ABC.345/01DE-3X"},
        {"12ABC34501DE3X", "12ABC34501DE3X"},
        {"ISENTO", "ISENTO"},
        {"pessoa fisica", "pessoa fisica"},
        {"12ABC34501DE351", "12ABC34501DE351"},
    };
    for (const auto& [texto, mostrado] : casos) {
        SampleWorld world;
        MaskedField& campo = campoComLetras(world);
        campo.setText(QString::fromUtf8(texto));
        EXPECT_EQ(campo.text(), QString::fromUtf8(mostrado)) << texto;
    }
}

TEST(MaskedFieldWithLetters, LettersFillTheirPlacesAsCapitals) {
    SampleWorld world;
    MaskedField& campo = campoComLetras(world);
    world.user.type(campo, u"12abc34501de35"_s);
    EXPECT_EQ(campo.text(), u"12.ABC.345/01DE-35"_s);
    world.user.type(campo, u"12.aBc.345/01dE-35"_s);
    EXPECT_EQ(campo.text(), u"12.ABC.345/01DE-35"_s) << "a mark typed in its place is passed over";
    world.user.type(campo, u"12abc34501dexy3z5"_s);
    EXPECT_EQ(campo.text(), u"12.ABC.345/01DE-35"_s) << "the check digits are digits";
    world.user.type(campo, u"1á2ç #_a"_s);
    EXPECT_EQ(campo.text(), u"12.A__.___/____-__"_s) << "what is neither a digit nor one of A to Z is refused";
    world.user.key(campo, Key::Backspace);
    world.user.key(campo, Key::Backspace);
    EXPECT_EQ(campo.text(), u"1_.___.___/____-__"_s);
    world.user.type(campo, u"zz"_s);
    campo.select(0, 2);
    world.user.key(campo, Key::Delete);
    EXPECT_TRUE(campo.isBlank());
}

TEST(MaskedFieldWithLetters, APastedValueIsLiftedOutOfItsWords) {
    const std::vector<std::pair<const char*, const char*>> casos{
        {"12.abc.345/01de-35", "12.ABC.345/01DE-35"},
        {"CNPJ: 12.ABC.345/01DE-35, matriz", "12.ABC.345/01DE-35"},
        {"CNPJ 12abc34501de35", "12.ABC.345/01DE-35"},
        {"CNPJ:\t11.222.333/0001-81\r\n", "11.222.333/0001-81"},
        {"12 abc 345 01de 35", "12.ABC.345/01DE-35"},
        {"12ABC", "12.ABC.___/____-__"},
        {"日本", "__.___.___/____-__"},
    };
    for (const auto& [texto, mostrado] : casos) {
        SampleWorld world;
        MaskedField& campo = campoComLetras(world);
        world.user.paste(campo, QString::fromUtf8(texto));
        EXPECT_EQ(campo.text(), QString::fromUtf8(mostrado)) << texto;
    }
}

TEST(MaskedFieldWithLetters, AMaskOfDigitsTakesNoLetterAndLiftsNothing) {
    SampleWorld world;
    MaskedField& campo = world.tela.mskCEP;
    campo.setMask(u"##.###.###/####-##"_s);
    campo.setText({});
    world.user.type(campo, u"12abc34501de35"_s);
    EXPECT_EQ(campo.text(), u"12.345.013/5___-__"_s);
    campo.setText(u"12abc34501de35"_s);
    EXPECT_EQ(campo.text(), u"12abc34501de35"_s) << "raw, small letters and all";
    EXPECT_EQ(campo.lifted(u"CNPJ 12.ABC.345/01DE-35"_s), u"CNPJ 12.ABC.345/01DE-35"_s);
}
