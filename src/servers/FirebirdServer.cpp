#include "servers/FirebirdServer.h"

#include "base/Literals.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <arpa/inet.h>
#include <csignal>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace vorta::servers {

namespace {

const QString serverProgram = u"/usr/sbin/firebird"_s;
const QString securityScript = u"/usr/share/firebird/3.0/security.sql"_s;
const QString characterSets = u"/usr/lib/x86_64-linux-gnu/firebird/3.0/intl/libfbintl.so"_s;
const QString password = u"segredo1"_s;
constexpr int waitMilliseconds = 20000;

[[noreturn]] void fail(const QString& reason) {
    throw std::runtime_error("the Firebird server cannot be had: " + reason.toStdString());
}

sockaddr_in loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<uint16_t>(port));
    return address;
}

/// A port that the system has just handed out and taken back.
int freePort() {
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = loopback(0);
    socklen_t size = sizeof address;
    const bool bound = socket >= 0 && bind(socket, reinterpret_cast<sockaddr*>(&address), size) == 0 &&
                       getsockname(socket, reinterpret_cast<sockaddr*>(&address), &size) == 0;
    if (socket >= 0)
        close(socket);
    if (!bound)
        fail(u"no free port"_s);
    return ntohs(address.sin_port);
}

bool answers(int port) {
    const int socket = ::socket(AF_INET, SOCK_STREAM, 0);
    const sockaddr_in address = loopback(port);
    const bool connected = connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    close(socket);
    return connected;
}

void write(const QString& path, const QString& content) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content.toUtf8()) < 0)
        fail(path + u" cannot be written"_s);
}

} // namespace

FirebirdServer::FirebirdServer() : port_(freePort()) {
    prepareRoot();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"FIREBIRD"_s, folder_.path());
    environment.insert(u"FIREBIRD_LOCK"_s, folder_.path());
    process_.setProcessEnvironment(environment);
    // The system kills it when this process ends, also by a crash.
    process_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
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

void FirebirdServer::prepareRoot() {
    write(folder_.filePath(u"firebird.conf"_s),
          u"ServerMode = Super\nRemoteServicePort = %1\nRemoteServiceName =\nRemoteBindAddress = 127.0.0.1\n"
          "SecurityDatabase = %2\nIpcName = vorta_%1\nAuthServer = Srp\nAuthClient = Srp\nUserManager = Srp\n"_s.arg(
              QString::number(port_), folder_.filePath(u"security3.fdb"_s)));
    QDir(folder_.path()).mkdir(u"intl"_s);
    if (!QFile::copy(characterSets, folder_.filePath(u"intl/libfbintl.so"_s)))
        fail(u"no character sets at "_s + characterSets);
}

void FirebirdServer::makeUser() {
    const QString script = folder_.filePath(u"users.sql"_s);
    write(script, u"create database '%1' user 'SYSDBA';\nin %2;\ncommit;\n"
                  "create user SYSDBA password '%3' using plugin Srp;\ncommit;\n"_s.arg(
                      folder_.filePath(u"security3.fdb"_s), securityScript, password));
    process_.start(u"isql-fb"_s, {u"-q"_s, u"-user"_s, u"SYSDBA"_s, u"-i"_s, script});
    if (!process_.waitForFinished(waitMilliseconds) || process_.exitCode() != 0)
        fail(u"isql-fb: "_s + process_.errorString() + QString::fromUtf8(process_.readAllStandardError()));
}

void FirebirdServer::start() {
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.start(serverProgram, QStringList());
    if (!process_.waitForStarted())
        fail(serverProgram + u": "_s + process_.errorString());
    QElapsedTimer waited;
    for (waited.start(); !answers(port_); QThread::msleep(20))
        if (process_.state() != QProcess::Running || process_.waitForFinished(0) || waited.hasExpired(waitMilliseconds))
            fail(serverProgram + u" does not answer: "_s + QString::fromUtf8(process_.readAll()));
}

} // namespace vorta::servers
