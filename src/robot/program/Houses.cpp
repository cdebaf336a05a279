#include "robot/program/Houses.h"

#include "base/Literals.h"
#include "data/EngineTags.h"
#include "robot/program/Application.h"
#include "robot/program/GivenSqlServer.h"
#include "robot/program/OwnSqlServer.h"
#include "robot/program/ServedInstallation.h"
#include "robot/program/SqlServerStage.h"
#include "robot/program/StandingSqlServer.h"

#include <QFile>
#include <algorithm>
#include <array>

namespace vorta::robot {

namespace {

/// Each scenario opens the files of its copy in its own process.
class EmbeddedHouse : public House {
  public:
    explicit EmbeddedHouse(const Options& options) : home_(options.home) {}
    std::unique_ptr<Stage> stage(const QString& copy) const override {
        return std::make_unique<Installation>(home_, copy);
    }

  private:
    QString home_;
};

/// One Firebird server for the run opens the files of all copies.
class ServerHouse : public House {
  public:
    explicit ServerHouse(const Options& options) : home_(options.home) {}
    std::unique_ptr<Stage> stage(const QString& copy) const override {
        return std::make_unique<ServedInstallation>(home_, copy, server_);
    }

  private:
    QString home_;
    servers::FirebirdServer server_;
};

/// The engine tag for the lines; an empty one is good for SQL Server too.
QString tagOf(const Options& options) {
    if (options.tag.isNull())
        return u"MS-SQL"_s;
    if (!options.tag.isEmpty() && !data::TagOpens(options.tag, data::Engine::SqlServer))
        throw Failure{u"no engine tag of SQL Server: %1"_s.arg(options.tag)};
    return options.tag;
}

/// Each scenario has a test server of its own.
class OwnSqlServerHouse : public House {
  public:
    explicit OwnSqlServerHouse(const Options& options)
        : home_(options.home), tag_(tagOf(options)), wire_(options.wire), keep_(options.keep) {
        servers::TdsServer::require();
        if (!wire_.isEmpty() && !QFile(wire_).open(QIODevice::WriteOnly))
            throw Failure{u"%1 cannot be written"_s.arg(wire_)};
    }
    std::unique_ptr<Stage> stage(const QString& copy) const override {
        return std::make_unique<SqlServerStage>(
            home_, copy, std::make_unique<OwnSqlServer>(keep_.isEmpty() ? copy : keep_, wire_), tag_);
    }

  private:
    QString home_;
    QString tag_;
    QString wire_;
    QString keep_;
};

/// The one scenario of the run works on databases that stand already.
class StandingSqlServerHouse : public House {
  public:
    explicit StandingSqlServerHouse(const Options& options)
        : home_(options.home), tag_(tagOf(options)), port_(options.standing) {
        if (options.files.size() != 1)
            throw Failure{u"--standing is for one scenario, the next one needs the databases anew"_s};
    }
    std::unique_ptr<Stage> stage(const QString& copy) const override {
        return std::make_unique<SqlServerStage>(home_, copy, std::make_unique<StandingSqlServer>(port_), tag_);
    }

  private:
    QString home_;
    QString tag_;
    QString port_;
};

/// All scenarios work on a given database, which is empty between them.
class GivenSqlServerHouse : public House {
  public:
    explicit GivenSqlServerHouse(const Options& options)
        : home_(options.home), tag_(tagOf(options)), server_(options.server) {
        if (!options.wire.isEmpty())
            throw Failure{u"--wire is for the test server"_s};
        withDatabase(&GivenSqlServer::requireNoTable);
    }
    std::unique_ptr<Stage> stage(const QString& copy) const override {
        return std::make_unique<SqlServerStage>(home_, copy, std::make_unique<GivenSqlServer>(server_), tag_);
    }
    void clear() const override { withDatabase(&GivenSqlServer::dropTables); }

  private:
    /// The driver needs an application, and the processes of the scenarios make their own.
    void withDatabase(void (GivenSqlServer::*work)()) const {
        WorkApart([&] {
            const Application application;
            GivenSqlServer database(server_);
            (database.*work)();
        });
    }

    QString home_;
    QString tag_;
    QString server_;
};

template <typename Kind>
std::unique_ptr<House> makeFirebirdHouse(const Options& options) {
    if (!options.server.isEmpty() || !options.tag.isNull() || !options.wire.isEmpty())
        throw Failure{u"--server, --tag and --wire are for SQL Server"_s};
    return std::make_unique<Kind>(options);
}

std::unique_ptr<House> makeSqlServerHouse(const Options& options) {
    if (!options.standing.isEmpty())
        return std::make_unique<StandingSqlServerHouse>(options);
    if (options.server.isEmpty())
        return std::make_unique<OwnSqlServerHouse>(options);
    return std::make_unique<GivenSqlServerHouse>(options);
}

struct EngineRow {
    const char* name;
    std::unique_ptr<House> (*make)(const Options& options);
};

constexpr std::array engines{
    EngineRow{"embedded", makeFirebirdHouse<EmbeddedHouse>},
    EngineRow{"server", makeFirebirdHouse<ServerHouse>},
    EngineRow{"sqlserver", makeSqlServerHouse},
};

} // namespace

std::unique_ptr<House> OpenHouse(const Options& options) {
    const auto row = std::find_if(engines.begin(), engines.end(), [&](const EngineRow& known) {
        return options.engine == QLatin1StringView(known.name);
    });
    if (row == engines.end()) {
        QStringList known;
        for (const EngineRow& engine : engines)
            known += QString::fromLatin1(engine.name);
        const QString last = known.takeLast();
        throw Failure{u"no engine %1; there are %2 and %3"_s.arg(options.engine, known.join(u", "_s), last)};
    }
    try {
        return row->make(options);
    } catch (const std::exception& error) {
        throw Failure{QString::fromUtf8(error.what())};
    }
}

} // namespace vorta::robot
