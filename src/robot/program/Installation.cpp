#include "robot/program/Installation.h"

#include "kit/Relocate.h"
#include "launch/CampoDelimitado.h"
#include "launch/EngineTags.h"
#include "robot/RowText.h"
#include "robot/Scenario.h"

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

} // namespace

bool Installation::isOne(const QString& home) {
    return QFileInfo(home + QStringLiteral("/config/server.ini")).isFile();
}

Installation::Installation(const QString& home, const QString& copy, data::AdapterFactory adapters, CastFactory cast)
    : home_(copy), adapters_(std::move(adapters)), cast_(std::move(cast)) {
    if (!isOne(home))
        throw Failure{QStringLiteral("%1 holds no installation").arg(home)};
    std::error_code error;
    std::filesystem::copy(home.toStdString(), copy.toStdString(),
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::copy_symlinks |
                              std::filesystem::copy_options::overwrite_existing,
                          error);
    if (error)
        throw Failure{QStringLiteral("%1 cannot be copied: %2").arg(home, QString::fromStdString(error.message()))};
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
        if (tag && tag->engine == data::Engine::Firebird)
            strings_[base] = CampoDelimitado(connectionField, line);
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
