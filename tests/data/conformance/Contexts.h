#pragma once

#include "data/Connection.h"
#include "support/ErrorOf.h"

#include <functional>
#include <gtest/gtest.h>
#include <iosfwd>
#include <vector>

namespace vorta::test {

/// One engine under the shared suite. Whatever engines do differently stands here by name; the tests themselves know no
/// engine.
struct EngineContext {
    const char* name;
    data::Engine engine;
    std::function<std::unique_ptr<data::Adapter>()> adapter;

    /// The connection string of an empty database, made anew for the whole run; throws when the engine cannot be had.
    std::function<QString()> connectionString;
    /// Connection strings that name no reachable database.
    std::function<QStringList()> unusable;

    /// The statements that make the suite's tables. They differ in the words for a long text and for a key that the
    /// database fills.
    std::vector<data::Statement> tables;
    /// What removes them after the run; nothing where the database itself goes.
    std::vector<data::Statement> afterwards;
    /// An insert that leaves the key to the database must not name it on one engine; on others it may be given too.
    bool keyMayBeGiven;
};

/// All engines of this run.
const std::vector<EngineContext>& EngineContexts();

/// The engine's name, for the name of a test.
std::string NameOf(const testing::TestParamInfo<EngineContext>& test);
void PrintTo(const EngineContext& context, std::ostream* out);

/// Removes what the run left in databases that outlive it.
class Afterwards : public testing::Environment {
  public:
    void TearDown() override;
};

/// A connection to the suite's database, its tables emptied before each test.
class ConformanceTest : public testing::TestWithParam<EngineContext> {
  protected:
    void SetUp() override;

    std::unique_ptr<data::Connection> connect() const;
    /// The adapter alone, opened on that database.
    std::unique_ptr<data::Adapter> bare() const;
    void write(const data::Statement& statement) { connection->Execute(statement); }
    /// The only value of a query's first row, as text; "(null)" for a null, "(none)" without a row.
    static QString one(data::Connection& connection, const data::Statement& statement);
    QString one(const data::Statement& statement) { return one(*connection, statement); }

    std::unique_ptr<data::Connection> connection;
};

} // namespace vorta::test
