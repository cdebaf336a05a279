#include "base/ServerLine.h"

#include "base/CampoDelimitado.h"
#include "base/Literals.h"
#include "base/Text.h"

#include <array>

namespace vorta {

namespace {

constexpr std::array fields{&ServerLine::server,      &ServerLine::database, &ServerLine::user,
                            &ServerLine::password,    &ServerLine::engine,   &ServerLine::firebirdConnection,
                            &ServerLine::keepsAccents};

} // namespace

ServerLine::ServerLine(const QString& line) {
    const QString trimmed = Trim(line);
    qint16 number = 0;
    for (QString ServerLine::*const field : fields)
        this->*field = CampoDaLinha(trimmed, ++number);
    complete = CamposNaLinha(trimmed) >= number;
}

QString ServerLine::tag() const {
    return engine.isEmpty() ? u"MS-SQL"_s : engine;
}

QString ServerLine::text() const {
    QString line;
    for (QString ServerLine::*const field : fields)
        line += this->*field + u'^';
    return line;
}

} // namespace vorta
