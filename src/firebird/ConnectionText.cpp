#include "firebird/ConnectionText.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "system/ThisSystem.h"

#include <QMap>
#include <QStringList>

namespace vorta::firebird {

namespace {

using Parts = QMap<QString, QString>;

QString unquoted(const QString& value) {
    const bool quoted = value.size() >= 2 && ((value.startsWith(u'"') && value.endsWith(u'"')) ||
                                              (value.startsWith(u'{') && value.endsWith(u'}')));
    return quoted ? value.mid(1, value.size() - 2) : value;
}

Parts partsOf(const QString& text) {
    Parts parts;
    for (const QString& part : text.split(u';', Qt::SkipEmptyParts)) {
        const qsizetype equals = part.indexOf(u'=');
        if (equals > 0)
            parts[part.first(equals).trimmed().toLower()] = unquoted(part.mid(equals + 1).trimmed());
    }
    return parts;
}

QString first(const Parts& parts, std::initializer_list<const char*> keys) {
    for (const char* key : keys)
        if (const QString value = parts.value(QString::fromLatin1(key)); !value.isEmpty())
            return value;
    return {};
}

/// "host:path" names a server; a single letter before the colon is a drive of this machine.
bool namesServer(const QString& database) {
    return database.indexOf(u':') > 1;
}

/// Where the path begins: behind "host:", "host/port:", "[address]:" or "inet://host:port/".
qsizetype beginOfPath(const QString& database) {
    if (const qsizetype scheme = database.indexOf(u"://"_s); scheme > 0)
        return database.indexOf(u'/', scheme + 3) + 1;
    return database.indexOf(u':', database.startsWith(u'[') ? database.indexOf(u']') : 0) + 1;
}

} // namespace

ConnectionText ReadConnectionText(const QString& text) {
    ConnectionText read;
    const QString whole = text.trimmed();
    if (!whole.contains(u'=')) {
        read.database = whole;
    } else {
        const Parts parts = partsOf(whole);
        read.database = first(parts, {"database", "dbname", "data source", "initial catalog"});
        read.user = first(parts, {"user", "uid", "user id", "username", "user name"});
        read.password = first(parts, {"password", "pwd"});
        read.role = first(parts, {"role"});
        QString server = first(parts, {"server", "host", "address"});
        if (const QString port = first(parts, {"port"}); !server.isEmpty() && !port.isEmpty())
            server += u'/' + port;
        if (!server.isEmpty() && !read.database.isEmpty() && !namesServer(read.database))
            read.database = server + u':' + read.database;
    }
    if (read.database.isEmpty())
        throw RuntimeError(errorNumber::ConnectionFailed);
    read.embedded = !namesServer(read.database);
    if (read.embedded) {
        if (!system::ThisSystem().hasDrives)
            read.database.replace(u'\\', u'/');
        // The file's permissions decide who may open it here; the engine only wants a name with full rights.
        if (read.user.isEmpty())
            read.user = u"SYSDBA"_s;
    }
    const qsizetype begin = read.embedded ? 0 : beginOfPath(read.database);
    read.server = read.database.first(begin);
    read.path = read.database.sliced(begin);
    return read;
}

QString ConnectionText::of(const QString& otherPath) const {
    return u"database=\"%1\";user=\"%2\";password=\"%3\";role=\"%4\""_s.arg(server + otherPath, user, password, role);
}

} // namespace vorta::firebird
