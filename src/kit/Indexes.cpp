#include "kit/Indexes.h"

#include "kit/Bases.h"
#include "kit/Ddl.h"

#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace vorta::kit {

namespace {

/// An index that is there, in the capitals of the engine.
struct Present {
    QString name;
    QString table;
    QStringList columns;
    bool descending = false;
    bool active = true;

    /// Made by the kit, as its name tells.
    bool isOwn() const {
        static const QRegularExpression number(u"^_IX\\d+$"_s);
        return name.startsWith(table) && number.match(name.sliced(table.size())).hasMatch();
    }
    bool is(const Index& index) const {
        return active && descending == index.descending && table == index.table.toUpper() &&
               columns.join(u", "_s) == index.columns.toUpper();
    }
};

std::vector<Present> presentIndexes(Loader& loader) {
    std::vector<Present> found;
    for (const QStringList& row :
         loader.rows(u"SELECT TRIM(I.RDB$INDEX_NAME), TRIM(I.RDB$RELATION_NAME), COALESCE(I.RDB$INDEX_TYPE, 0), "
                     "COALESCE(I.RDB$INDEX_INACTIVE, 0), TRIM(S.RDB$FIELD_NAME) FROM RDB$INDICES I "
                     "JOIN RDB$INDEX_SEGMENTS S ON S.RDB$INDEX_NAME = I.RDB$INDEX_NAME "
                     "WHERE COALESCE(I.RDB$SYSTEM_FLAG, 0) = 0 ORDER BY I.RDB$INDEX_NAME, S.RDB$FIELD_POSITION"_s)) {
        if (found.empty() || found.back().name != row[0])
            found.push_back({row[0], row[1], {}, row[2].toInt() == 1, row[3].toInt() == 0});
        found.back().columns << row[4];
    }
    return found;
}

QSet<QString> presentTables(Loader& loader) {
    QSet<QString> found;
    for (const QStringList& row : loader.rows(u"SELECT TRIM(RDB$RELATION_NAME) FROM RDB$RELATIONS"_s))
        found.insert(row.front());
    return found;
}

std::vector<Index> askedOf(Base base) {
    std::vector<Index> asked;
    std::copy_if(Indexes().begin(), Indexes().end(), std::back_inserter(asked), [&](const Index& index) {
        const Table* const table = FindTable(index.table);
        return table && table->base == base;
    });
    return asked;
}

void runAlone(Loader& loader, const QString& statement) {
    loader.run(statement);
    loader.commit();
}

void make(Loader& loader, const std::vector<Index>& missing, const Progress& progress) {
    QSet<QString> taken;
    for (const Present& present : presentIndexes(loader))
        taken.insert(present.name);
    qint64 done = 0;
    for (const Index& index : missing) {
        if (progress)
            progress(u"índices"_s, done++, static_cast<qint64>(missing.size()));
        int number = 1;
        while (taken.contains(IndexName(index.table, number).toUpper()))
            ++number;
        taken.insert(IndexName(index.table, number).toUpper());
        runAlone(loader, IndexStatement(data::Engine::Firebird, index, number));
    }
}

} // namespace

QString IndexWords(const Index& index) {
    return u"%1 (%2)"_s.arg(index.table.toUpper(), index.columns.toUpper());
}

IndexDifference CompareIndexes(Loader& loader, Base base) {
    const std::vector<Present> present = presentIndexes(loader);
    const QSet<QString> tables = presentTables(loader);
    const std::vector<Index> asked = askedOf(base);
    IndexDifference difference;
    for (const Index& index : asked)
        if (tables.contains(index.table.toUpper()) &&
            std::none_of(present.begin(), present.end(), [&](const Present& each) { return each.is(index); }))
            difference.missing.push_back(index);
    for (const Present& each : present)
        if (each.isOwn() &&
            std::none_of(asked.begin(), asked.end(), [&](const Index& index) { return each.is(index); }))
            difference.surplus << each.name;
    return difference;
}

IndexDifference UpdateIndexes(const QString& home, const QString& base, const Progress& progress) {
    const NamedBase named = FindBase(home, base);
    Loader loader(named.connection);
    const IndexDifference difference = CompareIndexes(loader, named.kind);
    loader.commit();
    if (progress)
        progress(u"índices"_s, 0, 0);
    for (const QString& name : difference.surplus)
        runAlone(loader, u"DROP INDEX "_s + name);
    make(loader, difference.missing, progress);
    for (const Present& present : presentIndexes(loader))
        if (present.active)
            loader.run(u"SET STATISTICS INDEX "_s + present.name);
    loader.commit();
    return difference;
}

} // namespace vorta::kit
