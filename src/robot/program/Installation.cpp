#include "robot/program/Installation.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "base/ServerLine.h"
#include "base/Windows1252.h"
#include "data/EngineTags.h"
#include "firebird/ConnectionText.h"
#include "firebird/FirebirdAdapter.h"
#include "kit/Relocate.h"
#include "robot/Player.h"
#include "robot/RowText.h"
#include "robot/Scenario.h"
#include "robot/program/RegisterCast.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <filesystem>

namespace vorta::robot {

namespace {

const QString serverFile = u"server.ini"_s;
const QString postalCodeFile = u"server_cep.ini"_s;

/// Links are followed, so that nothing in the copy is shared, and everything in it may be written.
void copyTree(const QString& from, const QString& to) {
    namespace fs = std::filesystem;
    const fs::path target(to.toStdString());
    try {
        fs::copy(from.toStdString(), target, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(target))
            fs::permissions(entry.path(), fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
    } catch (const fs::filesystem_error& error) {
        throw Failure{u"%1 cannot be copied: %2"_s.arg(from, QString::fromLocal8Bit(error.what()))};
    }
}

bool isFirebird(const ServerLine& line) {
    return data::TagOpens(line.engine, data::Engine::Firebird);
}

} // namespace

data::Statement AsOneText(const QString& text) {
    data::Statement statement;
    statement += text;
    return statement;
}

bool Installation::isOne(const QString& home) {
    return QFileInfo(home + u"/config/"_s + serverFile).isFile();
}

Installation::Installation(const QString& home, const QString& copy) : home_(copy) {
    if (!isOne(home))
        throw Failure{u"%1 holds no installation"_s.arg(home)};
    copyTree(home, copy);
    kit::Relocate(copy);
    learnFiles(serverFile, {Base::Main, Base::History, Base::Development});
    learnFiles(postalCodeFile, {Base::PostalCode});
}

void Installation::learnFiles(const QString& file, std::initializer_list<Base> bases) {
    QFile source(home_ + u"/config/"_s + file);
    if (!source.open(QIODevice::ReadOnly))
        return;
    for (const Base base : bases) {
        const ServerLine line(DecodedText(source.readLine()).trimmed());
        if (!isFirebird(line))
            continue;
        const QString connection = line.firebirdConnection;
        const std::optional<QString> own = ownFile(connection);
        // A scenario may write into a database only when it has been copied with the rest.
        if (!own)
            throw Failure{u"the database %1 lies outside the installation"_s.arg(connection)};
        files_[base] = *own;
    }
}

/// The file that a connection string opens in this process, when it lies inside the copy.
std::optional<QString> Installation::ownFile(const QString& connection) const {
    try {
        const firebird::ConnectionText text = firebird::ReadConnectionText(connection);
        const QString file = QDir::cleanPath(text.database);
        if (text.embedded && file.startsWith(QDir::cleanPath(home_) + u'/'))
            return file;
    } catch (const RuntimeError&) {
        // A string without a database opens nothing.
    }
    return std::nullopt;
}

void Installation::redirect(const Redirection& redirected) const {
    QDirIterator files(home_, {serverFile, postalCodeFile}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadWrite))
            throw Failure{u"%1 cannot be written"_s.arg(file.fileName())};
        QByteArrayList lines = file.readAll().split('\n');
        for (QByteArray& line : lines)
            line = redirectedLine(line, redirected);
        file.resize(0);
        file.write(lines.join('\n'));
    }
}

QByteArray Installation::redirectedLine(const QByteArray& line, const Redirection& redirected) const {
    ServerLine fields(DecodedText(line).trimmed());
    const std::optional<QString> file = isFirebird(fields) ? ownFile(fields.firebirdConnection) : std::nullopt;
    if (!file)
        return line;
    redirected(fields, *file);
    return fields.text().toUtf8() + (line.endsWith('\r') ? "\r" : "");
}

std::unique_ptr<Cast> Installation::cast(screen::Platform& platform, data::StatementTrace trace) {
    return std::make_unique<RegisterCast>(platform, std::move(trace), [this](const QString& launchString) {
        beforeStart(BaseOfLaunch(launchString, home_));
    });
}

QString Installation::connectionTo(const QString& file) const {
    return u"database=%1;user=SYSDBA"_s.arg(file);
}

data::Adapter& Installation::connection(Base base) {
    std::unique_ptr<data::Adapter>& adapter = connections_[base];
    if (adapter)
        return *adapter;
    const auto known = files_.find(base);
    if (known == files_.end())
        throw Failure{u"expected an embedded database in the configuration, there is none"_s};
    auto opened = data::MakeFirebirdAdapter();
    opened->open(connectionTo(known->second), secondsToOpen);
    adapter = std::move(opened);
    return *adapter;
}

void Installation::execute(Base base, const QString& statement) {
    connection(base).execute(AsOneText(statement));
}

QString Installation::query(Base base, const QString& statement) {
    RowText rows;
    connection(base).query(AsOneText(statement), rows);
    return rows.text();
}

} // namespace vorta::robot
