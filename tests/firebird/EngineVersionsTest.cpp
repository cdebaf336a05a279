#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "data/Connection.h"
#include "data/Recordset.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/EngineFiles.h"
#include "firebird/FirebirdAdapter.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// The versions of the engine beside each other: what a base of another one is told, and how it comes over.
namespace vorta::test {

namespace {

using data::Statement;
using firebird::DiskStructure;
using firebird::EngineInUse;

class EngineVersions : public testing::Test {
  protected:
    QString path(const char* name = "base.fdb") const { return folder.filePath(QString::fromLatin1(name)); }
    void open(const QString& base) { connection.Open(data::Engine::Firebird, base); }
    QString one(const Statement& query) { return value(query).textOr(u"(null)"_s); }
    data::Value value(const Statement& query) {
        data::Recordset rows;
        rows.Open(query, connection);
        return rows.Fields(0);
    }

    /// A base whose first page says that it is of that structure; the engine reads no further when it is not its own.
    QString baseOf(DiskStructure structure) {
        const QString base = path();
        firebird::CreateDatabase(base);
        constexpr qint64 structureAt = 18;
        constexpr quint16 ofFirebird = 0x8000;
        const quint16 number = static_cast<quint16>(structure.majorNumber) | ofFirebird;
        QFile file(base);
        EXPECT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(structureAt));
        EXPECT_EQ(file.write(reinterpret_cast<const char*>(&number), sizeof number), qint64{sizeof number});
        return base;
    }
    QString refusalOf(const QString& base) {
        try {
            open(base);
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.number(), errorNumber::ConnectionFailed);
            EXPECT_EQ(failure.engineCode(), 0) << "the program's own words";
            return QString(failure.description()).replace(base, u"X"_s);
        }
        return u"it opens"_s;
    }

    QTemporaryDir folder;
    data::Connection connection{[](data::Engine) { return data::MakeFirebirdAdapter(); }};
};

} // namespace

TEST_F(EngineVersions, TheOldestThatOpensAStructure) {
    const auto name = [](int major, int minor) {
        const auto engine = firebird::EngineOf({major, minor});
        return engine ? engine->name() : u"-"_s;
    };
    EXPECT_EQ(name(11, 2), u"-");
    EXPECT_EQ(name(12, 0), u"3.0");
    EXPECT_EQ(name(12, 2), u"3.0");
    EXPECT_EQ(name(13, 0), u"4.0");
    EXPECT_EQ(name(13, 1), u"5.0");
    EXPECT_EQ(name(13, 2), u"-");
    EXPECT_EQ(name(14, 0), u"-");
}

TEST_F(EngineVersions, TheEngineInUseIsTheOneOfTheServersAndOfNewBases) {
    firebird::CreateDatabase(path());
    open(path());
    EXPECT_EQ(
        one(Statement("select rdb$get_context('SYSTEM', 'ENGINE_VERSION') from rdb$database")).section(u'.', 0, 0),
        QString::number(EngineInUse().number));
    EXPECT_EQ(value(Statement("select mon$ods_major from mon$database")),
              data::Value(qint64{EngineInUse().structure.majorNumber}));
}

TEST_F(EngineVersions, ABaseOfAnOlderVersionIsToldWithTheWayToBringItOver) {
    const DiskStructure older{EngineInUse().structure.majorNumber - 1, 0};
    const auto maker = firebird::EngineOf(older);
    const QString name =
        maker ? u"Firebird "_s + maker->name() : u"Firebird de estrutura %1.0"_s.arg(older.majorNumber);
    EXPECT_EQ(refusalOf(baseOf(older)),
              u"A base X é do %1, e o motor em uso é o Firebird %2. Para trazê-la, copie-a onde houver o %1 "
              "(pessoas-base backup --home PASTA --base NOME CÓPIA) e restaure a cópia aqui "
              "(pessoas-base restore --home PASTA --base NOME --replace CÓPIA)"_s.arg(name, EngineInUse().name()));
}

TEST_F(EngineVersions, ABaseOfANewerVersionIsRefusedInWords) {
    const DiskStructure newer{EngineInUse().structure.majorNumber + 1, 0};
    const auto maker = firebird::EngineOf(newer);
    const QString name =
        maker ? u"Firebird "_s + maker->name() : u"Firebird de estrutura %1.0"_s.arg(newer.majorNumber);
    EXPECT_EQ(
        refusalOf(baseOf(newer)),
        u"A base X é do %1, mais novo que o motor em uso, o Firebird %2; ela só abre com o %1 ou um mais novo"_s.arg(
            name, EngineInUse().name()));
}

/// The copy was made by version 3.0; on a newer one its restoring is the upgrade.
TEST_F(EngineVersions, ACopyMadeByTheOldestVersionIsRestoredByEach) {
    firebird::PrepareEmbeddedEngine();
    QProcess restore;
    restore.start(firebird::EngineProgram(u"gbak"_s),
                  {u"-c"_s, u"-user"_s, u"SYSDBA"_s, QString::fromUtf8(VORTA_OLD_COPY), path()});
    ASSERT_TRUE(restore.waitForFinished());
    ASSERT_EQ(restore.exitCode(), 0) << restore.readAllStandardError().toStdString();
    open(path());
    EXPECT_EQ(one(Statement("select nome_pess from pess where nome_pess like '%joao%conceicao%'")),
              u"JOÃO DA CONCEIÇÃO");
    EXPECT_EQ(one(Statement("select obse from pess where idpess = 40")), u"OBSERVAÇÃO €");
    EXPECT_EQ(value(Statement("select limi_cred from pess where idpess = 40")), data::Value(data::Decimal{123450, 2}));
    EXPECT_EQ(one(Statement("select data_incl from pess where idpess = 40")), u"03/11/2019");
    EXPECT_EQ(one(Statement("select gen_id(gen_pess, 1) from rdb$generators where rdb$generator_name = 'GEN_PESS'")),
              u"42");
    connection.Execute(Statement("insert into arqt (nome) values ('TRES')"));
    EXPECT_EQ(one(Statement("select @@identity as 'MAXROWID'")), u"3");
    EXPECT_EQ(value(Statement("select mon$ods_major from mon$database")),
              data::Value(qint64{EngineInUse().structure.majorNumber}));
}

} // namespace vorta::test
