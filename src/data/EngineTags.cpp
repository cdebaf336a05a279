#include "data/EngineTags.h"

#include <algorithm>
#include <array>

namespace vorta::data {

namespace {

constexpr int longWait = 400;

/// The forms keep their order of fields and their blanks: other programs of the ERP open the same lines.
constexpr std::array tags{
    EngineTag{"MS-SQL", Engine::SqlServer, longWait, "driver={SQL Server};server=%1;uid=%2;pwd=%3;database=%4", true},
    EngineTag{"MSSQL", Engine::SqlServer, longWait, "driver={SQL Server};server=%1;uid=%2;pwd=%3;database=%4", true},
    EngineTag{"MS-SQL2005WEB", Engine::SqlServer, longWait, "Provider=SQLNCLI;Server=%1;Database=%4;Uid=%2; Pwd=%3;",
              false},
    EngineTag{"MS-SQL2008WEB", Engine::SqlServer, longWait, "Provider=SQLNCLI10;Server=%1;Database=%4;Uid=%2; Pwd=%3;",
              false},
    EngineTag{"MS-SQL-REMOTO", Engine::SqlServer, std::nullopt,
              "Provider=sqloledb;Network Library=DBMSSOCN;Data Source=%1;Initial Catalog=%4;User ID=%2; Password=%3",
              false},
    EngineTag{"FIREBIRD", Engine::Firebird, longWait, "", true},
};

} // namespace

std::span<const EngineTag> EngineTags() {
    return tags;
}

const EngineTag* FindEngineTag(const QString& tag) {
    const auto found =
        std::find_if(tags.begin(), tags.end(), [&](const EngineTag& row) { return tag == QLatin1StringView(row.tag); });
    return found == tags.end() ? nullptr : &*found;
}

bool TagOpens(const QString& tag, Engine engine) {
    const EngineTag* found = FindEngineTag(tag);
    return found && found->engine == engine;
}

QString ConnectionStringOf(const EngineTag& tag, const ServerLine& line) {
    if (!tag.hasForm())
        return line.firebirdConnection;
    return QString::fromLatin1(tag.form).arg(line.server, line.user, line.password, line.database);
}

} // namespace vorta::data
