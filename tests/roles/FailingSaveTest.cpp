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
    roleRows();
    if (!altera)
        for (const char* tabela : {"CLIE", "FORN", "TRPT", "MOTO", "VEND", "ARQT", "DECO"})
            database.answer(u"FROM %1, PESS"_s.arg(QLatin1StringView(tabela)), {});
    open(nome, [&] {
        click(altera ? "cmdALTERAR" : "cmdINCLUIR");
        if (tela().findField(u"Flex"_s))
            addContact("GERENTE", "RUI");
        if (qual == 0)
            failures.failCommit();
        else
            failures.failAt(qual);
        click("cmdSALVAR");
    });
    // A save that has fewer statements was committed before the failure came.
    if (committed()) {
        EXPECT_GT(qual, transaction().size());
        EXPECT_EQ(contexto.ModoTela, u" ");
        EXPECT_EQ(platform.boxes.front().text, saved);
        EXPECT_EQ(failure(), platform.boxes.size() > 1 ? errorNumber::StatementRefused : 0);
        return;
    }
    EXPECT_EQ(failure(),
              trapped(QString::fromLatin1(nome)) ? errorNumber::NoSuchMember : errorNumber::StatementRefused);
    EXPECT_EQ(program.exitCode(), 1);
    EXPECT_EQ(database.sent.last(), u"CLOSE") << "the transaction dies with the connection";
    EXPECT_EQ(platform.boxes.size(), 1u) << "only the box of the run-time error";
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
