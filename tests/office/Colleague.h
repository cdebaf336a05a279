#pragma once

#include <QProcess>
#include <QStringList>
#include <optional>

namespace vorta::test {

/// A user of the office in a process of his own, with a whole register on one installation.
class Colleague {
  public:
    /// Starts the register on that installation, as that user of the machine when one is named, and in the lock place
    /// of another home when one is given. Once its start screen is there, it says "here".
    explicit Colleague(const QString& home, const QString& lockHome = {}, std::optional<uint> user = {});
    ~Colleague();

    /// Gives a command, words of it in their order, without waiting for the answer.
    void begin(const QStringList& command);
    /// The words of the next line that the user tells; throws `std::runtime_error` when none comes.
    QStringList hear();
    /// Gives a command and its answer.
    QStringList ask(const QStringList& command);
    /// The words of the next line, nothing when none comes within that time or the user has gone.
    std::optional<QStringList> hearWithin(int milliseconds);
    /// Closes the register: the exit status; -1 for one that was killed.
    int leave();
    /// Ends it as a crash would.
    void kill();
    /// Waits for an end that comes from elsewhere.
    bool endsWithin(int milliseconds);
    /// How it ended, in words.
    QString fate() const;
    qint64 number() const { return process_.processId(); }
    /// What it has told the journal so far.
    QString journal();

  private:
    QProcess process_;
    QString journal_;
};

} // namespace vorta::test
