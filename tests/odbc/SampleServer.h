#pragma once

#include "base/Literals.h"
#include "servers/TdsServer.h"

namespace vorta::test {

/// The test server with the tables and the rows that the tests here name: schema.sql and rows.sql beside the server's
/// own tests.
struct SampleServer : servers::TdsServer {
    explicit SampleServer(const QStringList& options = {})
        : TdsServer(QStringList{u"--ddl"_s, sample("schema.sql"), u"--load"_s, sample("rows.sql")} + options) {}

  private:
    static QString sample(const char* file) { return QString::fromUtf8(TDS_SAMPLE "/") + QString::fromLatin1(file); }
};

} // namespace vorta::test
