#include "odbc/ConnectionKeys.h"

#include "base/Literals.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace vorta::odbc {

namespace {

/// What a key of a connection string says; a key that is not here (driver, provider, network library) says nothing to
/// this driver.
struct Key {
    QStringView name;
    const char* odbc;
};

constexpr std::array keys{
    Key{u"server", "SERVER"},     Key{u"data source", "SERVER"},
    Key{u"uid", "UID"},           Key{u"user id", "UID"},
    Key{u"pwd", "PWD"},           Key{u"password", "PWD"},
    Key{u"database", "DATABASE"}, Key{u"initial catalog", "DATABASE"},
};

constexpr QStringView standardPort = u"1433";

/// A value in braces may hold any character; the driver reads to the brace that a semicolon follows and knows no
/// doubled brace.
QString entry(const QString& key, const QString& value) {
    return key + u"={"_s + value + u"};"_s;
}

/// A named instance is found by asking its machine for the port; every other server answers on the port given or the
/// standard one.
QString serverEntries(const QString& key, const QString& value) {
    QString name = value.trimmed();
    if (name.startsWith(u"tcp:", Qt::CaseInsensitive))
        name.remove(0, 4);
    const qsizetype comma = name.lastIndexOf(u',');
    const QString host = (comma < 0 ? name : name.left(comma)).trimmed();
    const QString server = entry(key, host == u"." || host == u"(local)" ? u"localhost"_s : host);
    if (comma < 0 && host.contains(u'\\'))
        return server;
    const QString port = comma < 0 ? standardPort.toString() : name.mid(comma + 1).trimmed();
    return server + entry(u"PORT"_s, port);
}

} // namespace

QString OdbcConnectionString(const QString& connectionString) {
    QString odbc = u"DRIVER={FreeTDS};TDS_VERSION=7.4;CLIENTCHARSET=UTF-8;"_s;
    for (const QString& part : connectionString.split(u';')) {
        const QString name = part.section(u'=', 0, 0).trimmed().toLower();
        const auto key = std::find_if(keys.begin(), keys.end(), [&](const Key& row) { return row.name == name; });
        if (key == keys.end())
            continue;
        const QString odbcKey = QString::fromLatin1(key->odbc);
        const QString value = part.section(u'=', 1);
        odbc += odbcKey == u"SERVER" ? serverEntries(odbcKey, value) : entry(odbcKey, value);
    }
    return odbc;
}

} // namespace vorta::odbc
