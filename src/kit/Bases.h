#pragma once

#include "kit/ConfigFiles.h"
#include "kit/Schema.h"

/// The bases that an installation names in its configuration.
namespace vorta::kit {

/// Where the configuration files of a home are looked for: the configured folder first, then the fixed one.
struct Places {
    explicit Places(const Layout& given) : layout(given) {}
    Layout layout;
    QString root; ///< the application's folder as "server_aplic.ini" tells it

    QString find(const QString& name) const;
};

/// A base by its line of "server.ini" or "server_cep.ini".
struct NamedBase {
    QString name; ///< of its environment, or "CEP"
    Base kind;
    QString file;   ///< the configuration file
    qsizetype line; ///< its place in there, from 0
    QString connection;
};

/// "PRD", "HIST", "DEV" and "CEP".
QStringList BaseNames();
/// The base of that name, for the work that the engine itself does. Raises 53 or 13, in words, when no line names it or
/// the line names another engine.
NamedBase FindBase(const QString& home, const QString& name);

} // namespace vorta::kit
