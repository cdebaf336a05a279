// The commands of the documents, run as they stand there, but for the places.

#include "base/Literals.h"
#include "firebird/EmbeddedEngine.h"
#include "kit/Installed.h"
#include "kit/Loader.h"
#include "servers/FirebirdServer.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <gtest/gtest.h>

using namespace vorta;
using test::Installed;

namespace {

QStringList linesOf(const QString& document) {
    return kit::LinesOf(QString::fromUtf8(DOCUMENTS) + u'/' + document).value_or(QStringList());
}

/// The lines of a document that call the program, in their order.
QStringList commandsOf(const char* document) {
    QStringList commands;
    const QStringList lines = linesOf(QString::fromLatin1(document));
    for (const QString& line : lines)
        if (line.startsWith(u"    pessoas-base "_s) && !line.contains(u" create "_s))
            commands << line.trimmed();
    return commands;
}

/// Runs a command in a shell, with the standard places moved to those of the test: the exit code and all that was said.
std::pair<int, QString> run(QString command, const Installed& installed, const QString& copies) {
    command.replace(u"/opt/vorta"_s, installed.home())
        .replace(u"/var/backups"_s, copies)
        .replace(u"2026-11-20"_s, QDate::currentDate().toString(Qt::ISODate));
    QProcess shell;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString programs = QFileInfo(QString::fromUtf8(PESSOAS_BASE)).path();
    environment.insert(u"PATH"_s, programs + u':' + environment.value(u"PATH"_s));
    shell.setProcessEnvironment(environment);
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.start(u"sh"_s, {u"-c"_s, command});
    const bool ended = shell.waitForFinished(120'000);
    return {ended ? shell.exitCode() : -1, QString::fromUtf8(shell.readAll())};
}

} // namespace

TEST(DocumentedCommands, BringABaseToAServerAndKeepCopiesOfIt) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QTemporaryDir copies;
    const servers::FirebirdServer server;
    const QString other = server.connectionString(u"outra.fdb"_s);
    firebird::CreateDatabase(other);
    {
        kit::Loader administrator(other);
        administrator.run(u"CREATE USER VORTA PASSWORD 'segredo2'"_s);
        administrator.run(u"GRANT CREATE DATABASE TO USER VORTA"_s);
        administrator.commit();
    }
    const QStringList commands = commandsOf("servidor.md");
    ASSERT_EQ(commands.size(), 7);
    QStringList said;
    for (qsizetype at = 0; at < commands.size(); ++at) {
        const auto [code, words] = run(commands[at], installed, copies.path());
        EXPECT_EQ(code, 0) << commands[at] << ": " << words;
        if (at > 0)
            continue;
        QString connection = server.connectionString(u"pessoas.fdb"_s);
        connection = connection.first(connection.indexOf(u";user="_s)) + u";user=VORTA;password=segredo2"_s;
        QStringList lines = kit::LinesOf(installed.layout().config(u"server.ini"_s)).value_or(QStringList());
        lines[0] = u"servidor^pessoas^VORTA^segredo2^FIREBIRD^%1^False^"_s.arg(connection);
        installed.write(u"config/server.ini"_s, lines.join(u'\n').toUtf8());
    }
}

TEST(DocumentedCommands, KeepCopiesOfAnInstallation) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QTemporaryDir copies;
    const QStringList commands = commandsOf("instalacao.md");
    ASSERT_EQ(commands.size(), 2);
    for (const QString& command : commands) {
        const auto [code, words] = run(command, installed, copies.path());
        EXPECT_EQ(code, 0) << command << ": " << words;
    }
    EXPECT_EQ(QDir(copies.path()).entryList(QDir::Files).size(), 1);
}

TEST(DocumentedCommands, LookAfterAnInstallation) {
    const Installed installed = Installed::copyOf(Installed::plain());
    const QTemporaryDir copies;
    const QString streets = copies.filePath(u"lista.tsv"_s);
    installed.write(u"lista.tsv"_s, QByteArrayLiteral("cep\ttipo\tabreviatura\tlogradouro\tbairro\tcidade\tuf\n"
                                                      "01310-100\tAvenida\tAV\tPaulista\tBela Vista\tSão Paulo\tSP\n"));
    ASSERT_TRUE(QFile::copy(installed.home() + u"/lista.tsv"_s, streets));
    QStringList commands = commandsOf("administracao.md");
    ASSERT_EQ(commands.size(), 5);
    for (QString& command : commands) {
        const auto [code, words] = run(command.replace(u" lista.tsv"_s, u' ' + streets), installed, copies.path());
        EXPECT_EQ(code, 0) << command << ": " << words;
    }
}

TEST(DocumentedCommands, NameNoToolOfTheEngineForCopies) {
    const QDir documents(QString::fromUtf8(DOCUMENTS));
    for (const QString& name : documents.entryList({u"*.md"_s}))
        for (const QString& line : linesOf(name))
            EXPECT_FALSE(line.contains(u"gbak"_s) || line.contains(u"FIREBIRD_LOCK"_s)) << name << ": " << line;
}
