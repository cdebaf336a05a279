#include "servers/TdsServer.h"

#include "base/Literals.h"

#include <QFile>
#include <stdexcept>

namespace vorta::servers {

namespace {

constexpr int patienceMs = 20000;

QString here(const char* file) {
    return QString::fromUtf8(TDS_FOLDER "/") + QString::fromLatin1(file);
}

} // namespace

void TdsServer::require() {
    for (const QString& needed : {QString::fromUtf8(TDS_PYTHON), here("tds_server.py")})
        if (!QFile::exists(needed))
            throw std::runtime_error("the test server cannot be had: there is no " + needed.toStdString());
}

TdsServer::TdsServer(const QStringList& options) {
    const QStringList arguments{here("tds_server.py"), u"--trace"_s, folder_.filePath(u"trace"_s)};
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QString::fromUtf8(TDS_PYTHON), arguments + options);
    if (!process_.waitForReadyRead(patienceMs))
        throw std::runtime_error("the test server did not start");
    port_ = process_.readLine().trimmed().mid(5).toInt();
}

TdsServer::~TdsServer() {
    process_.closeWriteChannel();
    if (!process_.waitForFinished(patienceMs))
        process_.kill();
}

QString TdsServer::connectionString(const char* form, const QString& password, const QString& database) const {
    return QString::fromLatin1(form).arg(u"127.0.0.1,%1"_s.arg(port_), u"vorta"_s, password, database);
}

QString TdsServer::connectionString() const {
    return connectionString("driver={SQL Server};server=%1;uid=%2;pwd=%3;database=%4");
}

QStringList TdsServer::trace() const {
    QFile file(folder_.filePath(u"trace"_s));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
}

} // namespace vorta::servers
