#include "kit/Bases.h"

#include "base/CampoDelimitado.h"
#include "base/RuntimeError.h"
#include "base/ServerLine.h"
#include "base/Text.h"
#include "data/EngineTags.h"

#include <QFile>

namespace vorta::kit {

namespace {

Places placesOf(const QString& home) {
    const Layout layout(home);
    Places places(layout);
    if (const std::optional<QStringList> lines = LinesOf(layout.config(u"server_aplic.ini"_s))) {
        const QString line = Trim(lines->value(0));
        if (!line.isEmpty())
            places.root = QString(Trim(CampoDaLinha(line, 1)) + Trim(CampoDaLinha(line, 2))).replace(u'\\', u'/');
    }
    return places;
}

bool isFirebird(const ServerLine& line) {
    return data::TagOpens(line.tag(), data::Engine::Firebird) && !line.firebirdConnection.trimmed().isEmpty();
}

} // namespace

QString Places::find(const QString& name) const {
    const QString configured = root + u"config/"_s + name;
    return !root.isEmpty() && QFile::exists(configured) ? configured : layout.config(name);
}

QStringList BaseNames() {
    QStringList names;
    for (const Environment& environment : Environments())
        names << environment.name;
    return names << u"CEP"_s;
}

NamedBase FindBase(const QString& home, const QString& name) {
    const qsizetype place = BaseNames().indexOf(name);
    const bool main = place < Environments().size();
    NamedBase found{name,
                    main ? Base::Main : Base::PostalCode,
                    placesOf(home).find(main ? u"server.ini"_s : u"server_cep.ini"_s),
                    main ? place : 0,
                    {}};
    const std::optional<QStringList> lines = LinesOf(found.file);
    if (!lines)
        throw RuntimeError(errorNumber::FileNotFound,
                           u"O arquivo %1 não existe ou não pode ser lido"_s.arg(found.file));
    const ServerLine line(lines->value(found.line));
    if (!isFirebird(line))
        throw RuntimeError(
            errorNumber::TypeMismatch,
            u"A linha %1 de %2 não nomeia uma base Firebird; as cópias de outro servidor são feitas nele"_s
                .arg(found.line + 1)
                .arg(found.file));
    found.connection = line.firebirdConnection;
    return found;
}

} // namespace vorta::kit
