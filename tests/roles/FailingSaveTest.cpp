#include "base/Literals.h"
#include "roles/PapelTest.h"

/// Any statement of a role's save may fail: the program ends in order and nothing is committed.
namespace vorta::test {

namespace {

/// The screens whose save goes through an operation that the connection lacks.
bool trapped(const QString& tela) {
    return QStringList{"frmTransportadora", "frmMotorista", "frmVendedor"}.contains(tela);
}

using Where = std::tuple<const char*, bool, int>; ///< screen, alteration, which statement fails (0 for the commit)

class FailingSave : public PapelTest, public ::testing::WithParamInterface<Where> {};

TEST_P(FailingSave, EndsTheProgramWithNothingCommitted) {
    const auto [nome, altera, qual] = GetParam();
    registros();
    if (!altera)
        for (const char* tabela : {"CLIE", "FORN", "TRPT", "MOTO", "VEND", "ARQT", "DECO"})
            base.answer(u"FROM %1, PESS"_s.arg(QLatin1StringView(tabela)), {});
    abre(nome, [&] {
        clica(altera ? "cmdALTERAR" : "cmdINCLUIR");
        if (tela().findField(u"Flex"_s))
            incluiContato("GERENTE", "RUI");
        if (qual == 0)
            falhas.failCommit();
        else
            falhas.failAt(qual);
        clica("cmdSALVAR");
    });
    // A save that has fewer statements was committed before the failure came.
    if (confirmada()) {
        EXPECT_GT(qual, transacao().size());
        EXPECT_EQ(contexto.ModoTela, u" ");
        return;
    }
    ASSERT_TRUE(programa.failure());
    EXPECT_EQ(programa.failure()->number(),
              trapped(QString::fromLatin1(nome)) ? errorNumber::NoSuchMember : errorNumber::StatementRefused);
    EXPECT_EQ(programa.exitCode(), 1);
    EXPECT_EQ(base.sent.last(), u"CLOSE") << "the transaction dies with the connection";
    EXPECT_EQ(plataforma.boxes.size(), 1u) << "only the box of the run-time error";
}

INSTANTIATE_TEST_SUITE_P(Roles, FailingSave,
                         ::testing::Combine(::testing::Values("frmCliente", "frmFornecedor", "frmTransportadora",
                                                              "frmMotorista", "frmVendedor", "frmArquiteto",
                                                              "frmDecorador"),
                                            ::testing::Bool(), ::testing::Range(0, 9)),
                         [](const auto& where) {
                             return std::string(std::get<0>(where.param)) +
                                    (std::get<1>(where.param) ? "Altered" : "Included") +
                                    std::to_string(std::get<2>(where.param));
                         });

} // namespace

} // namespace vorta::test
