#include "kit/Ddl.h"

#include <QMap>

namespace vorta::kit {

namespace {

using data::Engine;

QString typeOf(Engine engine, const Column& column) {
    switch (column.kind) {
    case Kind::Key:
        return engine == Engine::Firebird ? QStringLiteral("INTEGER NOT NULL")
                                          : QStringLiteral("INTEGER IDENTITY(1,1) NOT NULL");
    case Kind::Integer:
        return QStringLiteral("INTEGER");
    case Kind::Amount:
        return QStringLiteral("DECIMAL(15,2)");
    case Kind::Date:
        return QStringLiteral("DATE");
    case Kind::Text:
        return QStringLiteral("VARCHAR(%1)").arg(column.length);
    }
    return {};
}

QString tableStatement(Engine engine, const Table& table) {
    QStringList lines;
    for (const Column& column : table.columns)
        lines << QStringLiteral("    %1 %2").arg(column.name, typeOf(engine, column));
    return QStringLiteral("CREATE TABLE %1 (\n%2\n)").arg(table.name, lines.join(QStringLiteral(",\n")));
}

QString keyTrigger(const Table& table) {
    return QStringLiteral("CREATE TRIGGER %1_KEY FOR %1 ACTIVE BEFORE INSERT POSITION 0 AS\nBEGIN\n"
                          "    IF (NEW.%2 IS NULL) THEN NEW.%2 = GEN_ID(%3, 1);\nEND")
        .arg(table.name, table.columns.front().name, table.generator);
}

QString scriptOf(Engine engine, Base base, const QString& title) {
    const bool firebird = engine == Engine::Firebird;
    const QString end = firebird ? QStringLiteral(";\n\n") : QStringLiteral(";\nGO\n\n");
    QString text = QStringLiteral("-- %1\n\n").arg(title);
    for (const QString& statement : TableStatements(engine, base)) {
        const bool trigger = statement.startsWith(QStringLiteral("CREATE TRIGGER"));
        text += trigger ? QStringLiteral("SET TERM ^;\n%1^\nSET TERM ;^\n\n").arg(statement) : statement + end;
    }
    for (const QString& statement : IndexStatements(engine, base))
        text += statement + (firebird ? QStringLiteral(";\n") : QStringLiteral(";\nGO\n"));
    return text + u'\n';
}

} // namespace

QStringList TableStatements(Engine engine, Base base) {
    QStringList statements;
    for (const Table& table : Tables()) {
        if (table.base != base)
            continue;
        statements << tableStatement(engine, table);
        if (engine != Engine::Firebird || table.generator.isEmpty())
            continue;
        statements << QStringLiteral("CREATE SEQUENCE %1").arg(table.generator);
        if (table.filledByDatabase)
            statements << keyTrigger(table);
    }
    return statements;
}

QStringList IndexStatements(Engine, Base base) {
    QStringList statements;
    QMap<QString, int> numbers;
    for (const Index& index : Indexes()) {
        const Table* table = FindTable(index.table);
        if (!table || table->base != base)
            continue;
        statements << QStringLiteral("CREATE INDEX %1_IX%2 ON %1 (%3)")
                          .arg(table->name)
                          .arg(++numbers[table->name])
                          .arg(index.columns);
    }
    return statements;
}

QString Script(Engine engine) {
    const QString head = engine == Engine::Firebird
                             ? QStringLiteral("-- Firebird 3. Create each database with PAGE_SIZE 16384 and DEFAULT "
                                              "CHARACTER SET WIN1252 COLLATION WIN_PTBR,\n"
                                              "-- so that a search without accents or capitals finds.\n\n")
                             : QStringLiteral("-- SQL Server. Create each database with COLLATE Latin1_General_CI_AI, "
                                              "so that a search without accents or\n"
                                              "-- capitals finds. Rows are numbered by the database.\n\n");
    return head + scriptOf(engine, Base::Main, QStringLiteral("Main database: one for each environment.")) +
           scriptOf(engine, Base::PostalCode, QStringLiteral("Postal-code database."));
}

} // namespace vorta::kit
