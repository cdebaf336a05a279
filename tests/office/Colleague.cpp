#include "office/Colleague.h"

#include "base/Literals.h"

#include <QDeadlineTimer>
#include <csignal>
#include <grp.h>
#include <stdexcept>
#include <sys/prctl.h>
#include <unistd.h>

namespace vorta::test {

constexpr int patience = 120'000;

Colleague::Colleague(const QString& home, const QString& lockHome, std::optional<uint> user) {
    // Goes with the test, however that ends.
    process_.setChildProcessModifier([user] {
        if (user && (setgroups(0, nullptr) != 0 || setgid(*user) != 0 || setuid(*user) != 0))
            ::_exit(126);
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    });
    process_.start(QString::fromUtf8(OFFICE_USER),
                   lockHome.isEmpty() ? QStringList{home} : QStringList{home, lockHome});
}

Colleague::~Colleague() {
    leave();
}

void Colleague::begin(const QStringList& command) {
    process_.write(command.join(u'\t').toUtf8() + '\n');
    process_.waitForBytesWritten();
}

QStringList Colleague::hear() {
    while (!process_.canReadLine())
        if (!process_.waitForReadyRead(patience))
            throw std::runtime_error("a user of the office says nothing");
    return QString::fromUtf8(process_.readLine()).chopped(1).split(u'\t');
}

QStringList Colleague::ask(const QStringList& command) {
    begin(command);
    return hear();
}

std::optional<QStringList> Colleague::hearWithin(int milliseconds) {
    const QDeadlineTimer deadline(milliseconds);
    while (!process_.canReadLine()) {
        if (deadline.hasExpired() || process_.state() == QProcess::NotRunning)
            return std::nullopt;
        process_.waitForReadyRead(static_cast<int>(deadline.remainingTime()));
    }
    return QString::fromUtf8(process_.readLine()).chopped(1).split(u'\t');
}

void Colleague::kill() {
    process_.kill();
    process_.waitForFinished(patience);
}

bool Colleague::endsWithin(int milliseconds) {
    return process_.state() == QProcess::NotRunning || process_.waitForFinished(milliseconds);
}

QString Colleague::fate() const {
    // A crash's exit code is the number of its signal.
    return (process_.exitStatus() == QProcess::CrashExit ? u"signal %1"_s : u"exit code %1"_s).arg(process_.exitCode());
}

QString Colleague::journal() {
    return journal_ += QString::fromUtf8(process_.readAllStandardError());
}

int Colleague::leave() {
    process_.closeWriteChannel();
    process_.waitForFinished(patience);
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

} // namespace vorta::test
