#include "servers/FirebirdServer.h"

#include "base/Literals.h"
#include "firebird/EngineFiles.h"
#include "system/Loopback.h"
#include "system/Process.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <stdexcept>

namespace vorta::servers {

namespace {

const QString password = u"segredo1"_s;
constexpr int waitMilliseconds = 20000;

[[noreturn]] void fail(const QString& reason) {
    throw std::runtime_error("the Firebird server cannot be had: " + reason.toStdString());
}

void write(const QString& path, const QString& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content.toUtf8()) < 0)
        fail(path + u" cannot be written"_s);
}

/// A program of the engine, run with the root folder that it is given.
QString program(const QString& name) {
    const QString found = firebird::EngineProgram(name);
    if (found.isEmpty())
        fail(name + u" is not installed"_s);
    return found;
}

} // namespace

FirebirdServer::FirebirdServer() : port_(system::FreePort()) {
    if (port_ == 0)
        fail(u"no free port"_s);
    prepareRoot();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FIREBIRD"_s, folder_.path());
    environment.insert(u"FIREBIRD_LOCK"_s, folder_.path());
    process_.setProcessEnvironment(environment);
    system::EndWithParent(process_);
    makeUser();
    start();
}

FirebirdServer::~FirebirdServer() {
    kill();
}

QString FirebirdServer::connectionString(const QString& file) const {
    return u"server=127.0.0.1;port=%1;database=%2;user=SYSDBA;password=%3"_s.arg(
        QString::number(port_), QDir(folder_.path()).filePath(file), password);
}

void FirebirdServer::kill() {
    process_.kill();
    process_.waitForFinished();
}

void FirebirdServer::pause() {
    system::Pause(process_.processId());
}

void FirebirdServer::resume() {
    system::Resume(process_.processId());
}

void FirebirdServer::prepareRoot() {
    write(folder_.filePath(u"firebird.conf"_s),
          u"ServerMode = Super\nRemoteServicePort = %1\nRemoteServiceName =\nRemoteBindAddress = 127.0.0.1\n"
          "SecurityDatabase = %2\nIpcName = vorta_%1\nAuthServer = Srp\nAuthClient = Srp\nUserManager = Srp\n"_s.arg(
              QString::number(port_), securityDatabase()));
    QDir(folder_.path()).mkdir(u"intl"_s);
    for (const firebird::RootFile& file : firebird::EngineRootFiles()) {
        const QString path = folder_.filePath(file.name);
        if (file.copyOf.isEmpty())
            write(path, QString::fromUtf8(file.text));
        else if (!QFile::copy(file.copyOf, path))
            fail(file.copyOf + u" cannot be copied"_s);
    }
}

void FirebirdServer::makeUser() {
    const QString script = folder_.filePath(u"users.sql"_s);
    write(script, u"create database '%1' user 'SYSDBA';\n"
                  "create user SYSDBA password '%2' using plugin Srp;\ncommit;\n"_s.arg(securityDatabase(), password));
    process_.start(program(u"isql-fb"_s), {u"-q"_s, u"-user"_s, u"SYSDBA"_s, u"-i"_s, script});
    if (!process_.waitForFinished(waitMilliseconds) || process_.exitCode() != 0)
        fail(u"isql-fb: "_s + process_.errorString() + QString::fromUtf8(process_.readAllStandardError()));
}

QString FirebirdServer::securityDatabase() const {
    return folder_.filePath(QString::fromLatin1(firebird::EngineInUse().securityDatabase));
}

void FirebirdServer::start() {
    const QString server = program(u"firebird"_s);
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.start(server, QStringList());
    if (!process_.waitForStarted())
        fail(server + u": "_s + process_.errorString());
    QElapsedTimer waited;
    for (waited.start(); !system::AnswersOnPort(port_); QThread::msleep(20))
        if (process_.state() != QProcess::Running || process_.waitForFinished(0) || waited.hasExpired(waitMilliseconds))
            fail(server + u" does not answer: "_s + QString::fromUtf8(process_.readAll()));
}

} // namespace vorta::servers
