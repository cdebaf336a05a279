#include "shared/ValidaCampos.h"
#include "base/Literals.h"

#include "support/World.h"

using namespace vorta;
using namespace vorta::test;

namespace {

struct Email {
    const char* texto;
    const char* mensagem; ///< empty for an accepted one
};

constexpr const char* curto = "O e-mail digitado tem menos de 5 caracterec!!!";
constexpr const char* arrobas = "O nº de arrobas (@) do e-mail é inválido!!!";
constexpr const char* invalido = "Foi digitado um caracter inválido no e-mail!!!";
constexpr const char* semPontoDepois = "O e-mail não tem nenhum ponto (.) após a arroba (@)!!!";
constexpr const char* dobrado = "O e-mail contém pontos consecutivos (..) após o arroba (@)!!!";

/// A screen with one masked date field, its mask off as the check finds it.
struct TelaData : screen::Screen {
    explicit TelaData(screen::Program& program) : Screen(program, u"frmTeste"_s) {}
    screen::MaskedField campo{this, "mskDtAdmissao", u"##/##/####"_s};
};

} // namespace

TEST(ValidaCampos, EmailRulesInTheirOrder) {
    const std::vector<Email> casos{
        {"maria.silva@c.d", ""},
        {"Maria-Silva_1@Casa.com.br", ""},
        {"a..b@c.d", ""},
        {"a.b@c.", ""}, // the first point alone is looked at, so a closing one slips through
        {"", curto},
        {"a@b", curto},
        {"a@b.", curto},
        {"abcde", arrobas},
        {"a@b@c.d", arrobas},
        {"@abc.d", "O e-mail foi iniciado com uma arroba (@)!!!"},
        {"abc.d@", "O e-mail termina com uma arroba (@)!!!"},
        {"abc@d", "O e-mail é inválido, pois não contém pontos (.)!!!"},
        {".a@b.c", "O e-mail foi iniciado com um ponto (.)!!!"},
        {"abc@d.", "O e-mail termina com um ponto (.)!!!"},
        {"a.b@c", semPontoDepois},
        {"a@b..c", dobrado},
        {"joão@c.d", invalido},
        {"a@b.c d", invalido},
        {" a@b.c", invalido},
        {"a@b.c;d", invalido},
    };
    for (const auto& [texto, mensagem] : casos) {
        World world;
        const bool aceito = *mensagem == '\0';
        EXPECT_EQ(ValidaEmail(world.contexto, QString::fromUtf8(texto)), aceito) << texto;
        ASSERT_EQ(world.platform.boxes.size(), aceito ? 0u : 1u) << texto;
        if (aceito)
            continue;
        const screen::Box& caixa = world.platform.boxes.front();
        EXPECT_EQ(caixa.text, QString::fromUtf8(mensagem)) << texto;
        EXPECT_EQ(caixa.title, QString());
        EXPECT_EQ(caixa.icon, screen::Icon::None);
        EXPECT_EQ(caixa.buttons, screen::Buttons::OK);
    }
}

TEST(ValidaCampos, DayAndMonthOfTheCurrentYear) {
    World world; // its clock stands in 2026, no leap year
    const auto confere = [&](const char* texto, bool valido, const char* depois) {
        QString data = QString::fromUtf8(texto);
        EXPECT_EQ(ValidaDiaMes(world.contexto, data), valido) << texto;
        EXPECT_EQ(data, QString::fromUtf8(depois)) << texto;
    };
    confere("__/__", true, "__/__");
    confere("28/02", true, "28/02/2026");
    confere("29/02", false, "29/02/2026");
    confere("31/02", false, "31/02/2026");
    confere("12/13", false, "12/13/2026");
    confere("1_/02", false, "1_/02/2026");
    world.platform.clock = QDateTime(QDate(2028, 1, 1), QTime(8, 0));
    confere("29/02", true, "29/02/2028");
}

TEST(ValidaCampos, TypedDates) {
    World world; // 20/11/2026 14:30
    TelaData tela(world.program);
    const auto formata = [&](const QString& texto) { return FormataDataDigitada(world.contexto, texto, tela.campo); };
    EXPECT_EQ(formata(u"__/__/____"_s), u"__/__/____"_s);
    EXPECT_EQ(formata(u"__/__/____ 10:30"_s), u"__/__/____ __:__"_s);
    EXPECT_EQ(formata(u"05/11/2026"_s), u"05/11/2026"_s);
    EXPECT_EQ(formata(u"05/11/2026 09:07"_s), u"05/11/2026 09:07"_s);
    EXPECT_EQ(tela.campo.text(), u"__/__/____"_s) << "only a number of days goes into the field";
    EXPECT_EQ(formata(u"30/__/____"_s), u"20/12/2026"_s);
    EXPECT_EQ(tela.campo.text(), u"20/12/2026"_s);
    // Day and month without a year are read as one number, 105 days.
    EXPECT_EQ(formata(u"01/05/____"_s), u"05/03/2027"_s);
}

TEST(ValidaCampos, NumericKeys) {
    for (const char tecla : std::string(",0123456789%-"))
        EXPECT_EQ(FiltraTeclaNumerica(tecla), QString::number(tecla));
    EXPECT_EQ(FiltraTeclaNumerica(8), u"8"_s);
    for (const qint16 tecla : {13, 27, 32, 39, 43, 46, 65, 97})
        EXPECT_EQ(FiltraTeclaNumerica(tecla), u"0"_s) << tecla;
}

TEST(ValidaCampos, CommasBecomePoints) {
    QString texto = u"1.234,56"_s;
    EXPECT_EQ(VirgulaParaPonto(texto), u"1.234.56"_s);
    EXPECT_EQ(texto, u"1.234.56"_s);
}
