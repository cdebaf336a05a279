#include "kit/Copies.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "kit/FaultWords.h"
#include "kit/Installed.h"
#include "kit/Loader.h"
#include "kit/MoveToServer.h"
#include "kit/Verify.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

const QString production = u"PRD"_s;

/// What a work says when it refuses, with the home cut out.
template <typename Work>
std::string refusal(const Installed& installed, Work work) {
    try {
        work();
    } catch (const RuntimeError& error) {
        return QString(error.description()).replace(installed.home(), u"~"_s).toStdString();
    }
    return "";
}

/// What `verify` finds wrong, a line each.
std::string faults(const Installed& installed, const QString& base = production) {
    QStringList words;
    for (const kit::Finding& finding : kit::VerifyBase(installed.home(), base))
        if (!finding.right)
            words << QString(finding.words).replace(installed.home(), u"~"_s);
    return words.join(u'\n').toStdString();
}

class Copies : public testing::Test {
  protected:
    QString home() const { return installed_.home(); }
    QString copy() const { return home() + u"/copia.fbk"_s; }
    QStringList baseFiles() const { return QDir(home() + u"/base"_s).entryList(QDir::Files); }
    void run(const char* statement) const {
        kit::Loader loader(installed_.production());
        loader.run(QString::fromUtf8(statement));
        loader.commit();
    }
    qint64 persons() const { return kit::Loader(installed_.production()).number(u"SELECT COUNT(*) FROM PESS"_s); }

    Installed installed_ = Installed::copyOf(Installed::demonstration());
};

} // namespace

TEST_F(Copies, BringBackWhatWasThere) {
    const qint64 before = persons();
    kit::BackUpBase(home(), production, copy());
    run("DELETE FROM PESS");
    const kit::Restored restored = kit::RestoreBase(home(), production, copy(), true);
    EXPECT_EQ(persons(), before);
    EXPECT_EQ(restored.base, installed_.production());
    EXPECT_EQ(kit::Loader(restored.previous).number(u"SELECT COUNT(*) FROM PESS"_s), 0);
    kit::Loader loader(restored.base);
    EXPECT_EQ(loader.number(u"SELECT MON$FORCED_WRITES FROM MON$DATABASE"_s), 1);
    EXPECT_EQ(loader.number(u"SELECT COUNT(*) FROM MUNI_IBGE WHERE DESC_MUNI_IBGE LIKE '%sao%'"_s),
              kit::Loader(Installed::demonstration().production())
                  .number(u"SELECT COUNT(*) FROM MUNI_IBGE WHERE DESC_MUNI_IBGE LIKE '%sao%'"_s));
}

TEST_F(Copies, AreReadableByTheirOwnerAlone) {
    kit::BackUpBase(home(), production, copy());
    EXPECT_EQ(QFile::permissions(copy()), QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser);
    EXPECT_EQ(QDir(home()).entryList({u"*.parcial"_s}), QStringList());
}

TEST_F(Copies, EveryBaseOfTheInstallationCanBeChosen) {
    for (const char* name : {"PRD", "HIST", "DEV", "CEP"}) {
        const QString base = QString::fromLatin1(name);
        const QString file = home() + u'/' + base;
        EXPECT_GT(kit::BackUpBase(home(), base, file), 0);
        EXPECT_TRUE(kit::RestoreBase(home(), base, file, true).base.startsWith(home() + u"/base/"_s));
        EXPECT_EQ(faults(installed_, base), "") << name;
        EXPECT_EQ(kit::LastCopy(home(), base)->file, file);
    }
}

TEST_F(Copies, ACopyWritesOverNothing) {
    installed_.write(u"copia.fbk"_s, "texto");
    EXPECT_EQ(refusal(installed_, [&] { kit::BackUpBase(home(), production, copy()); }),
              "~/copia.fbk já existe; escolha outro nome para a cópia");
    EXPECT_EQ(QFile(copy()).size(), 5);
}

TEST_F(Copies, ABaseIsReplacedOnlyWhenToldTo) {
    kit::BackUpBase(home(), production, copy());
    run("DELETE FROM PESS");
    EXPECT_EQ(refusal(installed_, [&] { kit::RestoreBase(home(), production, copy(), false); }),
              "A base ~/base/pessoas.fdb já existe e não foi tocada; para pôr a cópia no lugar dela, use --replace");
    EXPECT_EQ(persons(), 0);
}

TEST_F(Copies, ABaseThatIsGoneComesBackWithoutAWord) {
    kit::BackUpBase(home(), production, copy());
    const QStringList before = baseFiles();
    QFile::remove(installed_.production());
    EXPECT_EQ(kit::RestoreBase(home(), production, copy(), false).previous, QString());
    EXPECT_EQ(faults(installed_), "");
    EXPECT_EQ(baseFiles(), before);
}

TEST_F(Copies, ABaseInUseIsLeftAlone) {
    kit::BackUpBase(home(), production, copy());
    const QStringList before = baseFiles();
    {
        kit::Loader colleague(installed_.production());
        EXPECT_EQ(refusal(installed_, [&] { kit::RestoreBase(home(), production, copy(), true); }),
                  "A base ~/base/pessoas.fdb está em uso; feche o programa em todas as sessões. Nada foi alterado");
        EXPECT_EQ(faults(installed_), "");
    }
    EXPECT_EQ(baseFiles(), before);
}

TEST_F(Copies, ABrokenCopyChangesNothing) {
    kit::BackUpBase(home(), production, copy());
    const QStringList before = baseFiles();
    QFile file(copy());
    ASSERT_TRUE(file.resize(file.size() / 2));
    EXPECT_NE(refusal(installed_, [&] { kit::RestoreBase(home(), production, copy(), true); }), "");
    installed_.write(u"copia.fbk"_s, "texto");
    EXPECT_NE(refusal(installed_, [&] { kit::RestoreBase(home(), production, copy(), true); }), "");
    EXPECT_EQ(baseFiles(), before);
    EXPECT_EQ(faults(installed_), "");
}

TEST_F(Copies, ACopyOfANewerEngineIsRefusedInWords) {
    kit::BackUpBase(home(), production, copy());
    const QStringList before = baseFiles();
    QFile file(copy());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    // A copy begins with its form's number: 10 is that of 3.0, 11 that of 4.0.
    constexpr qint64 formAt = 3;
    ASSERT_EQ(file.peek(formAt), QByteArray("\0\2\4", formAt));
    file.seek(formAt);
    file.write("\x63");
    file.close();
    try {
        kit::RestoreBase(home(), production, copy(), true);
        ADD_FAILURE() << "it is restored";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(kit::FaultWords(error),
                  u"a cópia foi feita por um motor mais novo que este, que não a lê; restaure-a "
                  "com o motor que a fez, ou com um mais novo"_s);
    }
    EXPECT_EQ(baseFiles(), before);
    EXPECT_EQ(faults(installed_), "");
}

TEST_F(Copies, VerificationFindsRowsWithoutTheirPerson) {
    EXPECT_EQ(faults(installed_), "");
    run("INSERT INTO PESS_CONT (IDPESS_CONT, IDPESS, NOME_PESS_CONT) VALUES (9001, 777777, 'SEM PESSOA')");
    run("INSERT INTO PESS_ATIV (IDPESS_ATIV, IDPESS, IDATIV) VALUES (9001, 777777, 1)");
    run("INSERT INTO CLIE (IDCLIE, IDPESS) VALUES (9001, NULL)");
    run("INSERT INTO PESS (IDPESS, IDFORN, IDTIPO_CLIE) VALUES (9001, 888888, 0)");
    EXPECT_EQ(faults(installed_), "PESS_CONT: 1 linha(s) cujo IDPESS não existe em PESS (idpess_cont 9001)\n"
                                  "PESS_ATIV: 1 linha(s) cujo IDPESS não existe em PESS (idpess_ativ 9001)\n"
                                  "CLIE: 1 linha(s) cujo IDPESS não existe em PESS (idclie 9001)\n"
                                  "PESS: 1 linha(s) cujo IDFORN não existe em FORN para a mesma pessoa (idPESS 9001)");
}

TEST_F(Copies, VerificationFindsADamagedPage) {
    QFile file(installed_.postalCodes());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    constexpr qint64 page = 16384;
    constexpr char dataPage = 5;
    qint64 last = 0;
    for (qint64 at = 0; at < file.size(); at += page) {
        file.seek(at);
        if (file.read(1)[0] == dataPage)
            last = at;
    }
    file.seek(last);
    file.write(QByteArray(page, '\0'));
    file.close();
    EXPECT_NE(faults(installed_, u"CEP"_s), "");
}

class ServerCopies : public Copies {
  protected:
    servers::FirebirdServer server_;
};

TEST_F(ServerCopies, TravelToThisMachineAndBack) {
    const qint64 before = persons();
    const QString connection = test::MoveToServer(installed_, server_);
    kit::BackUpBase(home(), production, copy());
    EXPECT_EQ(QFile::permissions(copy()) & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_EQ(faults(installed_), "");
    EXPECT_NE(refusal(installed_, [&] { kit::RestoreBase(home(), production, copy(), false); }), "");

    const kit::Restored restored = kit::RestoreBase(home(), production, copy(), true);
    EXPECT_NE(restored.line, connection);
    EXPECT_TRUE(kit::LinesOf(installed_.layout().config(u"server.ini"_s))->front().contains(restored.line));
    EXPECT_EQ(kit::Loader(restored.line).number(u"SELECT COUNT(*) FROM PESS"_s), before);
    EXPECT_EQ(faults(installed_), "");
    // Whoever still has the old line is refused, so that nothing is saved where nobody looks any more.
    EXPECT_THROW(kit::Loader{connection}, RuntimeError);
}

TEST_F(ServerCopies, LeaveABaseInUseAlone) {
    const QString connection = test::MoveToServer(installed_, server_);
    const QByteArray before = kit::LinesOf(installed_.layout().config(u"server.ini"_s))->join(u'\n').toUtf8();
    kit::BackUpBase(home(), production, copy());
    kit::Loader colleague(connection);
    EXPECT_NE(refusal(installed_, [&] { kit::RestoreBase(home(), production, copy(), true); }), "");
    EXPECT_EQ(kit::LinesOf(installed_.layout().config(u"server.ini"_s))->join(u'\n').toUtf8(), before);
    EXPECT_EQ(faults(installed_), ""); // and verifies it as it is
    EXPECT_GT(colleague.number(u"SELECT COUNT(*) FROM PESS"_s), 0);
}
