#pragma once

#include <QProcess>
#include <QStringList>

namespace vorta::test {

/// A user of the office in a process of his own, with a whole register on one installation.
class Colleague {
  public:
    /// Starts the register and waits until its start screen is there.
    explicit Colleague(const QString& home);
    ~Colleague();

    /// Gives a command, words of it in their order, without waiting for the answer.
    void begin(const QStringList& command);
    /// The words of the next line that the user tells; throws `std::runtime_error` when none comes.
    QStringList hear();
    /// Gives a command and its answer.
    QStringList ask(const QStringList& command);
    /// Closes the register: the exit status.
    int leave();

  private:
    QProcess process_;
};

} // namespace vorta::test
