#pragma once

#include "base/ServerLine.h"
#include "data/Adapter.h"
#include "robot/Stage.h"

#include <functional>
#include <map>
#include <optional>

namespace vorta::robot {

/// A copy of an installation for one scenario, with connections to its databases beside the program's own. They use the
/// engine's adapter directly: a scenario's statement is one text whose origin is known, so no guard has to look for
/// values in it. As it stands the copy plays on the embedded engine; the other engines change what they must.
class Installation : public Stage {
  public:
    /// Copies the installation in `home` into the empty folder `copy`. Raises `Failure` when `home` is none, or when a
    /// database of its configuration is not a file of it, which are the only ones that can be copied.
    Installation(const QString& home, const QString& copy);

    QString home() const override { return home_; }
    data::Engine engine() const override { return data::Engine::Firebird; }
    std::unique_ptr<Cast> cast(screen::Platform& platform, data::StatementTrace trace) override;
    void execute(Base base, const QString& statement) override;
    QString query(Base base, const QString& statement) override;

    /// True for a folder that holds an installation.
    static bool isOne(const QString& home);

  protected:
    /// Comes in front of each start of the program, with the main database that it will open.
    virtual void beforeStart(Base) {}
    /// The connection string for a database file of the copy.
    virtual QString connectionTo(const QString& file) const;
    /// The connection beside the program, made at its first use; a failure when the configuration names no such base.
    data::Adapter& connection(Base base);
    void close(Base base) { connections_.erase(base); }

    /// The database files that the configuration of the installation names.
    const std::map<Base, QString>& files() const { return files_; }
    /// Writes every line of a "server.ini" or "server_cep.ini" of the copy that opens one of its database files anew:
    /// with the fields that `redirected` changes.
    using Redirection = std::function<void(ServerLine& line, const QString& file)>;
    void redirect(const Redirection& redirected) const;

  private:
    void learnFiles(const QString& file, std::initializer_list<Base> bases);
    std::optional<QString> ownFile(const QString& connection) const;
    QByteArray redirectedLine(const QByteArray& line, const Redirection& redirected) const;

    QString home_;
    std::map<Base, QString> files_;
    std::map<Base, std::unique_ptr<data::Adapter>> connections_;
};

/// How long a connection beside the program may take to open.
constexpr int secondsToOpen = 15;

/// A statement of a scenario, in which no value is to be looked for.
data::Statement AsOneText(const QString& text);

} // namespace vorta::robot
