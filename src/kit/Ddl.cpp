#include "kit/Ddl.h"

#include "base/Literals.h"

#include <QMap>

namespace vorta::kit {

namespace {

using data::Engine;

/// What the engines say in words of their own.
struct Dialect {
    QString head;       ///< of a script
    QString key;        ///< the type of a table's key
    QString end;        ///< behind a statement of a script
    QString endOfIndex; ///< the same, of its indexes, which stand close together
    bool generators;    ///< keys come from generators, not from the table itself
    QString descending; ///< between CREATE and INDEX; empty where an index is walked either way
};

const Dialect& dialectOf(Engine engine) {
    static const Dialect firebird{u"-- Firebird 3. Create each database with PAGE_SIZE 16384 and DEFAULT "
                                  "CHARACTER SET WIN1252 COLLATION WIN_PTBR,\n"
                                  "-- so that a search without accents or capitals finds.\n\n"_s,
                                  u"INTEGER NOT NULL"_s,
                                  u";\n\n"_s,
                                  u";\n"_s,
                                  true,
                                  u"DESCENDING "_s};
    static const Dialect sqlServer{u"-- SQL Server. Create each database with COLLATE Latin1_General_CI_AI, "
                                   "so that a search without accents or\n"
                                   "-- capitals finds. Rows are numbered by the database.\n\n"_s,
                                   u"INTEGER IDENTITY(1,1) NOT NULL"_s,
                                   u";\nGO\n\n"_s,
                                   u";\nGO\n"_s,
                                   false,
                                   {}};
    switch (engine) {
    case Engine::Firebird:
        return firebird;
    case Engine::SqlServer:
        return sqlServer;
    }
    Q_UNREACHABLE();
}

QString typeOf(const Dialect& dialect, const Column& column) {
    switch (column.kind) {
    case Kind::Key:
        return dialect.key;
    case Kind::Integer:
        return u"INTEGER"_s;
    case Kind::Amount:
        return u"DECIMAL(15,2)"_s;
    case Kind::Date:
        return u"DATE"_s;
    case Kind::Text:
        return u"VARCHAR(%1)"_s.arg(column.length);
    }
    return {};
}

QString tableStatement(const Dialect& dialect, const Table& table) {
    QStringList lines;
    for (const Column& column : table.columns)
        lines << u"    %1 %2"_s.arg(column.name, typeOf(dialect, column));
    return u"CREATE TABLE %1 (\n%2\n)"_s.arg(table.name, lines.join(u",\n"_s));
}

QString keyTrigger(const Table& table) {
    return u"CREATE TRIGGER %1_KEY FOR %1 ACTIVE BEFORE INSERT POSITION 0 AS\nBEGIN\n"
           "    IF (NEW.%2 IS NULL) THEN NEW.%2 = GEN_ID(%3, 1);\nEND"_s.arg(table.name, table.columns.front().name,
                                                                             table.generator);
}

QString scriptOf(Engine engine, Base base, const QString& title) {
    const Dialect& dialect = dialectOf(engine);
    QString text = u"-- %1\n\n"_s.arg(title);
    for (const QString& statement : TableStatements(engine, base)) {
        const bool trigger = statement.startsWith(u"CREATE TRIGGER"_s);
        text += trigger ? u"SET TERM ^;\n%1^\nSET TERM ;^\n\n"_s.arg(statement) : statement + dialect.end;
    }
    for (const QString& statement : IndexStatements(engine, base))
        text += statement + dialect.endOfIndex;
    return text + u'\n';
}

} // namespace

QStringList TableStatements(Engine engine, Base base) {
    const Dialect& dialect = dialectOf(engine);
    QStringList statements;
    for (const Table& table : Tables()) {
        if (table.base != base)
            continue;
        statements << tableStatement(dialect, table);
        if (!dialect.generators || table.generator.isEmpty())
            continue;
        statements << u"CREATE SEQUENCE %1"_s.arg(table.generator);
        if (table.filledByDatabase)
            statements << keyTrigger(table);
    }
    return statements;
}

QString IndexStatement(Engine engine, const Index& index, int number) {
    const QString kind = index.descending ? dialectOf(engine).descending : QString();
    return u"CREATE %1INDEX %2 ON %3 (%4)"_s.arg(kind, IndexName(index.table, number), index.table, index.columns);
}

QString IndexName(const QString& table, int number) {
    return u"%1_IX%2"_s.arg(table).arg(number);
}

QStringList IndexStatements(Engine engine, Base base) {
    QStringList statements;
    QMap<QString, int> numbers;
    for (const Index& index : Indexes())
        if (const Table* table = FindTable(index.table); table && table->base == base)
            statements << IndexStatement(engine, index, ++numbers[table->name]);
    return statements;
}

QString SqlServerIndexScript() {
    QStringList tables;
    for (const Table& table : Tables())
        if (table.base == Base::Main)
            tables << u"N'"_s + table.name.toUpper() + u'\'';
    QString text =
        u"-- SQL Server. Removes the indexes that an earlier script of this program made and makes those of this "
        "version.\n\n"
        "DECLARE @drop nvarchar(max) = N'';\n"
        "SELECT @drop = @drop + N'DROP INDEX ' + QUOTENAME(i.name) + N' ON ' + QUOTENAME(s.name) + N'.' + "
        "QUOTENAME(t.name) + N'; '\n"
        "FROM sys.indexes i JOIN sys.tables t ON t.object_id = i.object_id JOIN sys.schemas s ON s.schema_id "
        "= t.schema_id\n"
        "WHERE i.is_primary_key = 0 AND i.is_unique_constraint = 0\n"
        "AND UPPER(i.name) LIKE REPLACE(UPPER(t.name), N'_', N'[_]') + N'[_]IX[0-9]%'\n"
        "AND UPPER(t.name) IN (%1);\n"
        "EXEC sys.sp_executesql @drop;\nGO\n\n"_s.arg(tables.join(u", "_s));
    for (const QString& statement : IndexStatements(Engine::SqlServer, Base::Main))
        text += statement + dialectOf(Engine::SqlServer).endOfIndex;
    return text;
}

QString Script(Engine engine) {
    return dialectOf(engine).head + scriptOf(engine, Base::Main, u"Main database: one for each environment."_s) +
           scriptOf(engine, Base::PostalCode, u"Postal-code database."_s);
}

} // namespace vorta::kit
