#pragma once

#include "data/Adapter.h"
#include "kit/Schema.h"

#include <QStringList>

/// The definitions of the tables in the words of either engine. Names stand as the programs spell them, nothing is
/// quoted.
namespace vorta::kit {

/// The statements that create the tables, generators and key triggers of a base, in order. SQL Server numbers its rows
/// itself.
QStringList TableStatements(data::Engine engine, Base base);
/// The statements that create its indexes; a large load runs before them.
QStringList IndexStatements(data::Engine engine, Base base);
/// One of them, and the name that it gets: the table's, and a number of its own.
QString IndexStatement(data::Engine engine, const Index& index, int number);
QString IndexName(const QString& table, int number);
/// Brings the indexes of an existing main base on SQL Server to those of this version, for that engine's own tool.
QString SqlServerIndexScript();
/// The whole definition of both bases as a script that the engine's own tool takes, explained in comments.
QString Script(data::Engine engine);

} // namespace vorta::kit
