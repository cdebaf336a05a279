#include "robot/program/Installation.h"

#include "firebird/ConnectionText.h"
#include "kit/Relocate.h"
#include "launch/CampoDelimitado.h"
#include "launch/EngineTags.h"
#include "robot/RowText.h"
#include "robot/Scenario.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <filesystem>

namespace vorta::robot {

namespace {

constexpr int secondsToOpen = 15;
constexpr qint16 tagField = 5;
constexpr qint16 connectionField = 6;

data::Statement asOneText(const QString& text) {
    data::Statement statement;
    statement += text;
    return statement;
}

/// Links are followed, so that nothing in the copy is shared, and everything in it may be written.
void copyTree(const QString& from, const QString& to) {
    namespace fs = std::filesystem;
    const fs::path target(to.toStdString());
    try {
        fs::copy(from.toStdString(), target, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(target))
            fs::permissions(entry.path(), fs::perms::owner_read | fs::perms::owner_write, fs::perm_options::add);
    } catch (const fs::filesystem_error& error) {
        throw Failure{QStringLiteral("%1 cannot be copied: %2").arg(from, QString::fromLocal8Bit(error.what()))};
    }
}

/// A scenario may write into a database only when it has been copied with the rest.
void requireInside(const QString& home, const QString& connection) {
    const firebird::ConnectionText text = firebird::ReadConnectionText(connection);
    if (!text.embedded || !QDir::cleanPath(text.database).startsWith(QDir::cleanPath(home) + u'/'))
        throw Failure{QStringLiteral("the database %1 lies outside the installation").arg(text.database)};
}

} // namespace

bool Installation::isOne(const QString& home) {
    return QFileInfo(home + QStringLiteral("/config/server.ini")).isFile();
}

Installation::Installation(const QString& home, const QString& copy, data::AdapterFactory adapters, CastFactory cast)
    : home_(copy), adapters_(std::move(adapters)), cast_(std::move(cast)) {
    if (!isOne(home))
        throw Failure{QStringLiteral("%1 holds no installation").arg(home)};
    copyTree(home, copy);
    kit::Relocate(copy);
    learnConnections(QStringLiteral("/config/server.ini"), {Base::Main, Base::History, Base::Development});
    learnConnections(QStringLiteral("/config/server_cep.ini"), {Base::PostalCode});
}

void Installation::learnConnections(const QString& file, std::initializer_list<Base> bases) {
    QFile source(home_ + file);
    if (!source.open(QIODevice::ReadOnly))
        return;
    for (const Base base : bases) {
        QString line = QString::fromUtf8(source.readLine()).trimmed();
        const EngineTag* tag = FindEngineTag(CampoDelimitado(tagField, line));
        if (!tag || tag->engine != data::Engine::Firebird)
            continue;
        strings_[base] = CampoDelimitado(connectionField, line);
        requireInside(home_, strings_[base]);
    }
}

std::unique_ptr<Cast> Installation::cast(screen::Platform& platform, data::StatementTrace trace) {
    return cast_(platform, std::move(trace));
}

data::Adapter& Installation::connection(Base base) {
    std::unique_ptr<data::Adapter>& adapter = connections_[base];
    if (adapter)
        return *adapter;
    const auto known = strings_.find(base);
    if (known == strings_.end())
        throw Failure{QStringLiteral("expected an embedded database in the configuration, there is none")};
    auto opened = adapters_(data::Engine::Firebird);
    opened->open(known->second, secondsToOpen);
    adapter = std::move(opened);
    return *adapter;
}

void Installation::execute(Base base, const QString& statement) {
    connection(base).execute(asOneText(statement));
}

QString Installation::query(Base base, const QString& statement) {
    RowText rows;
    connection(base).query(asOneText(statement), rows);
    return rows.text();
}

} // namespace vorta::robot
