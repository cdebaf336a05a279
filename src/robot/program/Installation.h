#pragma once

#include "data/Adapter.h"
#include "robot/Stage.h"

#include <map>

namespace vorta::robot {

/// Makes the program of a stage.
using CastFactory = std::function<std::unique_ptr<Cast>(screen::Platform& platform, data::StatementTrace trace)>;

/// A copy of an installation for one scenario, with connections to its databases beside the program's own. They use the
/// engine's adapter directly: a scenario's statement is one text whose origin is known, so no guard has to look for
/// values in it.
class Installation : public Stage {
  public:
    /// Copies the installation in `home` into the empty folder `copy`. Raises `Failure` when `home` is none, or when it
    /// is not of the embedded engine, whose databases are the only ones that can be copied.
    Installation(const QString& home, const QString& copy, data::AdapterFactory adapters, CastFactory cast);

    QString home() const override { return home_; }
    std::unique_ptr<Cast> cast(screen::Platform& platform, data::StatementTrace trace) override;
    void execute(Base base, const QString& statement) override;
    QString query(Base base, const QString& statement) override;

    /// True for a folder that holds an installation.
    static bool isOne(const QString& home);

  private:
    void learnConnections(const QString& file, std::initializer_list<Base> bases);
    data::Adapter& connection(Base base);

    QString home_;
    data::AdapterFactory adapters_;
    CastFactory cast_;
    std::map<Base, QString> strings_;
    std::map<Base, std::unique_ptr<data::Adapter>> connections_;
};

} // namespace vorta::robot
