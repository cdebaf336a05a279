#include "odbc/ConnectionKeys.h"

#include "base/Literals.h"
#include "system/ThisSystem.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace vorta::odbc {

namespace {

/// What a key of a connection string says; a key that is not here (network library) says nothing to
/// the drivers.
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

struct Provider {
    QStringView name;
    const char* driver;
};

constexpr std::array providers{
    Provider{u"sqlncli", "SQL Native Client"},
    Provider{u"sqlncli10", "SQL Server Native Client 10.0"},
    Provider{u"sqloledb", "SQL Server"},
};

QString valueOf(const QString& connectionString, QStringView wanted) {
    for (const QString& part : connectionString.split(u';'))
        if (part.section(u'=', 0, 0).trimmed().toLower() == wanted)
            return part.section(u'=', 1).trimmed();
    return {};
}

/// The driver that the connection string names, or that stands for its provider.
QString driverOf(const QString& connectionString) {
    if (QString named = valueOf(connectionString, u"driver"); !named.isEmpty())
        return named.remove(u'{').remove(u'}');
    const QString provider = valueOf(connectionString, u"provider").toLower();
    const auto known =
        std::find_if(providers.begin(), providers.end(), [&](const Provider& row) { return row.name == provider; });
    return QString::fromLatin1(known == providers.end() ? providers.back().driver : known->driver);
}

/// A value in braces may hold any character.
QString entry(const QString& key, QString value, const DriverForm& driver) {
    if (driver.bracesDoubled)
        value.replace(u'}', u"}}"_s);
    return key + u"={"_s + value + u"};"_s;
}

/// A named instance is found by asking its machine for the port; every other server answers on the port given or the
/// standard one.
QString serverEntries(const QString& key, const QString& value, const DriverForm& driver) {
    if (!driver.portIsKey)
        return entry(key, value.trimmed(), driver);
    QString name = value.trimmed();
    if (name.startsWith(u"tcp:", Qt::CaseInsensitive))
        name.remove(0, 4);
    const qsizetype comma = name.lastIndexOf(u',');
    const QString host = (comma < 0 ? name : name.left(comma)).trimmed();
    const QString server = entry(key, host == u"." || host == u"(local)" ? u"localhost"_s : host, driver);
    if (comma < 0 && host.contains(u'\\'))
        return server;
    const QString port = comma < 0 ? standardPort.toString() : name.mid(comma + 1).trimmed();
    return server + entry(u"PORT"_s, port, driver);
}

} // namespace

const DriverForm& DriverOfThisSystem() {
    return system::ThisSystem().namesSqlServerDrivers ? microsoft : freeTds;
}

QString OdbcConnectionString(const QString& connectionString, const DriverForm& driver) {
    QString odbc = QString::fromLatin1(driver.settings).replace(u"%1"_s, driverOf(connectionString));
    for (const QString& part : connectionString.split(u';')) {
        const QString name = part.section(u'=', 0, 0).trimmed().toLower();
        const auto key = std::find_if(keys.begin(), keys.end(), [&](const Key& row) { return row.name == name; });
        if (key == keys.end())
            continue;
        const QString odbcKey = QString::fromLatin1(key->odbc);
        const QString value = part.section(u'=', 1);
        odbc += odbcKey == u"SERVER" ? serverEntries(odbcKey, value, driver) : entry(odbcKey, value, driver);
    }
    return odbc;
}

} // namespace vorta::odbc
