#include "office/Colleague.h"

#include <stdexcept>

namespace vorta::test {

constexpr int patience = 120'000;

Colleague::Colleague(const QString& home) {
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process_.start(QString::fromUtf8(OFFICE_USER), {home});
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

int Colleague::leave() {
    process_.closeWriteChannel();
    process_.waitForFinished(patience);
    return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
}

} // namespace vorta::test
