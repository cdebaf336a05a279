#include "faults/Faults.h"

#include "base/Literals.h"
#include "kit/Loader.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <gtest/gtest.h>

namespace vorta::test {

namespace {

constexpr int patience = 60'000;

/// Persons of a colleague whose lists do not belong to their mark.
constexpr const char* halfSaved =
    "SELECT P.IDPESS, P.NOME_PESS FROM PESS P WHERE P.OBSE_PESS_0003 STARTING WITH 'U' AND ((SELECT COUNT(*) FROM "
    "PESS_CONT C WHERE C.IDPESS = P.IDPESS AND C.NOME_PESS_CONT IN (P.OBSE_PESS_0003 || ' A', P.OBSE_PESS_0003 || ' "
    "B', P.OBSE_PESS_0003 || ' C')) <> 3 OR (SELECT COUNT(*) FROM PESS_CONT C WHERE C.IDPESS = P.IDPESS) <> 3 OR "
    "(SELECT COUNT(*) FROM PESS_ATIV A WHERE A.IDPESS = P.IDPESS) <> 2)";
/// Rows of a list whose person is not there.
constexpr const char* orphans = "SELECT (SELECT COUNT(*) FROM PESS_CONT C WHERE NOT EXISTS (SELECT 1 FROM PESS P WHERE "
                                "P.IDPESS = C.IDPESS)) + (SELECT COUNT(*) FROM PESS_ATIV A WHERE NOT EXISTS (SELECT 1 "
                                "FROM PESS P WHERE P.IDPESS = A.IDPESS)) FROM RDB$DATABASE";

} // namespace

int Times(int inShort, int inLong) {
    return qEnvironmentVariableIntValue("VORTA_TEST_LONG") > 0 ? inLong : inShort;
}

void ExpectHere(Colleague& colleague) {
    const std::optional<QStringList> words = colleague.hearWithin(patience);
    ASSERT_TRUE(words) << qPrintable(colleague.journal());
    ASSERT_EQ(words->value(0), u"here") << qPrintable(words->join(u' '));
}

bool Include(Colleague& colleague, const QString& name, quint64 document, Told& told) {
    const QStringList answer = colleague.ask({u"include"_s, name, u"U "_s + name, QString::number(document)});
    if (answer[0] != u"included")
        return false;
    told[answer.value(1)] = name;
    return true;
}

QString ValidationOf(const QString& base, const QString& lockFolder) {
    // A save that died may have stored a row that it had not yet put into an index; such rows, which nobody sees, are
    // swept away first. What is missing then, is missing of committed rows.
    for (const QStringList& work : {QStringList{u"-sweep"_s}, QStringList{u"-v"_s, u"-full"_s, u"-n"_s}}) {
        QProcess tool;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"FIREBIRD"_s, qEnvironmentVariable("FIREBIRD"));
        environment.insert(u"FIREBIRD_LOCK"_s, lockFolder);
        tool.setProcessEnvironment(environment);
        tool.setProcessChannelMode(QProcess::MergedChannels);
        tool.start(u"gfix"_s, work + QStringList{u"-user"_s, u"SYSDBA"_s, base});
        if (!tool.waitForFinished(patience))
            return u"gfix does not end"_s;
        const QString words = QString::fromUtf8(tool.readAll());
        if (tool.exitCode() != 0 || words.contains(QRegularExpression(u"errors\\s*:"_s)))
            return words.isEmpty() ? u"gfix failed without a word"_s : words;
    }
    return {};
}

void ExpectWhole(const Installed& installed, const Told& told) {
    const QString base = installed.production();
    EXPECT_EQ(ValidationOf(base, installed.home() + u"/firebird/lock"_s), QString());
    kit::Loader loader(base);
    QMap<QString, QString> standing;
    for (const QStringList& row : loader.rows(u"SELECT IDPESS, NOME_PESS FROM PESS"_s))
        standing[row[0]] = row[1];
    int lost = 0;
    for (const auto& [key, name] : told.asKeyValueRange())
        if (standing.value(key) != name && ++lost <= 5)
            ADD_FAILURE() << "told as saved and lost: " << qPrintable(key + u' ' + name);
    EXPECT_EQ(lost, 0) << "of " << told.size();
    for (const QStringList& row : loader.rows(QString::fromLatin1(halfSaved)))
        ADD_FAILURE() << "half saved: " << qPrintable(row.join(u' '));
    EXPECT_EQ(loader.number(QString::fromLatin1(orphans)), 0) << "rows without their person";
}

} // namespace vorta::test
