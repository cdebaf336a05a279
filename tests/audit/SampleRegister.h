#pragma once

#include "audit/Audit.h"
#include "base/Literals.h"
#include "kit/Installed.h"
#include "servers/TdsServer.h"

#include <QStringList>

#include <vector>

namespace vorta::test {

/// Rows of one table, as they are written in any dialect.
struct SampleRows {
    const char* table;
    const char* columns;
    std::vector<const char*> values;
};

/// A register in which everything is wrong that an audit looks for, and some of it right.
const std::vector<SampleRows>& sampleRows();

/// Embedded, with the towns of the country.
class EmbeddedSample {
  public:
    explicit EmbeddedSample(const std::vector<SampleRows>& rows);
    data::Connection& connection() { return connection_; }
    /// All rows of a query, values between bars.
    QStringList rows(const QString& query) const;
    const Installed& installed() const { return installed_; }

  private:
    Installed installed_;
    data::Connection connection_;
};

/// On the test server of SQL Server, with the towns that the rows name.
class SqlServerSample {
  public:
    explicit SqlServerSample(const std::vector<SampleRows>& rows);
    data::Connection& connection() { return connection_; }

  private:
    QTemporaryDir folder_;
    std::unique_ptr<servers::TdsServer> server_;
    data::Connection connection_;
};

/// Keeps what is found, a line each: check, group, person, field, value, words.
class FindingLines : public audit::Findings {
  public:
    void found(const audit::Finding& finding) override;
    void further(audit::Check check, qint64 count) override { more[static_cast<std::size_t>(check)] += count; }
    QStringList of(audit::Check check) const;

    std::vector<audit::Finding> all;
    std::array<qint64, audit::checks.size()> more{};
};

} // namespace vorta::test
