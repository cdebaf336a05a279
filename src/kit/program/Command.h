#pragma once

#include "base/Literals.h"
#include "kit/Check.h"
#include "kit/Create.h"

#include <QElapsedTimer>
#include <QStringList>

#include <cstdio>
#include <functional>
#include <map>
#include <optional>

/// What the commands of `pessoas-base` share. Each command stands in a file of its own and is a row of the table in
/// main.cpp.
namespace vorta::program {

/// How the program ends.
enum Outcome { succeeded = 0, failed = 1, misused = 2 };

/// The words behind a command: options with their values, and what stands alone.
class Arguments {
  public:
    Arguments(const QStringList& words, const QStringList& withValue, const QStringList& without = {});

    bool has(const QString& option) const { return options_.contains(option); }
    QString value(const QString& option, const QString& otherwise = {}) const;
    QString home() const { return value(u"--home"_s); }
    /// The base that the command is for: one of `kit::BaseNames`, the first one unless told.
    QString base() const;
    const QStringList& rest() const { return rest_; }
    /// True when a command that has a home and so many words beside its options was given just that.
    bool right(qsizetype words) const;

  private:
    std::map<QString, QString> options_;
    QStringList rest_;
    bool wrong_ = false;
};

/// No outcome is a wrong use, which the usage answers.
using Run = std::optional<Outcome> (*)(const QStringList& words);

std::optional<Outcome> Create(const QStringList& words);
std::optional<Outcome> Ddl(const QStringList& words);
std::optional<Outcome> Cep(const QStringList& words);
std::optional<Outcome> Check(const QStringList& words);
std::optional<Outcome> Conferir(const QStringList& words);
std::optional<Outcome> Try(const QStringList& words);
std::optional<Outcome> Importar(const QStringList& words);
std::optional<Outcome> Backup(const QStringList& words);
std::optional<Outcome> Restore(const QStringList& words);
std::optional<Outcome> Verify(const QStringList& words);
std::optional<Outcome> Upgrade(const QStringList& words);
std::optional<Outcome> Indexes(const QStringList& words);

void Say(FILE* where, const QString& line);
/// One line for each finding, and a last one that counts the faults.
Outcome Report(const std::vector<kit::Finding>& findings);
/// Refuses a folder that holds no installation (53).
void RequireInstallation(const QString& home);

/// Shows how far a long work is, on a terminal only and not more often than one can read. While it lives, Ctrl+C is
/// noted and stops the work where it tells of itself, by raising 18; whoever is at work undoes what is not complete.
class ProgressLine {
  public:
    ProgressLine();
    ~ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;
    void operator()(const QString& what, qint64 done, qint64 all);
    /// What `look` finds, its progress shown; also stopped behind its last word, when it may have found what Ctrl+C
    /// did.
    static std::vector<kit::Finding> Find(const std::function<std::vector<kit::Finding>(const kit::Progress&)>& look);

  private:
    static void stopIfWanted();

    bool shown_ = false;
    QElapsedTimer since_;
};

} // namespace vorta::program
