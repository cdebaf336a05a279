#include "kit/Upgrade.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "kit/Bases.h"
#include "kit/Loader.h"

namespace vorta::kit {

namespace {

const QString apostrophe = u"''''"_s; ///< as a literal
const QString acuteAccent = u"_WIN1252 x'B4'"_s;

/// A name compared character by character, where the base's own order takes no notice of accents and signs.
QString exact(const NameColumn& names) {
    return u"%1 COLLATE WIN1252"_s.arg(QLatin1StringView(names.column));
}

QString having(const NameColumn& names) {
    return u"WHERE POSITION(%1 IN %2) > 0"_s.arg(apostrophe, exact(names));
}

/// The base of that name; none when it is on another engine, whose own tools change it.
std::optional<NamedBase> ours(const QString& home, const QString& name) {
    try {
        return FindBase(home, name);
    } catch (const RuntimeError& error) {
        if (error.number() != errorNumber::TypeMismatch)
            throw;
        return std::nullopt;
    }
}

} // namespace

qint64 NameColumn::withApostrophe(Loader& loader) const {
    return loader.number(u"SELECT COUNT(*) FROM %1 %2"_s.arg(QLatin1StringView(table), having(*this)));
}

std::vector<NameColumn> NameColumns(Base base) {
    if (base == Base::Main)
        return {{"muni_ibge", "desc_muni_ibge"}};
    return {{"LOGR", "NOME_LOGR"}, {"TIPO", "NOME_TIPO"}, {"TIPO", "ABRV_TIPO"},
            {"LOCA", "NOME_LOCA"}, {"BAIR", "NOME_BAIR"}, {"BAIR", "ABRV_BAIR"}};
}

qint64 UpgradeInstallation(const QString& home) {
    qint64 changed = 0;
    for (const QString& name : BaseNames()) {
        const std::optional<NamedBase> base = ours(home, name);
        if (!base)
            continue;
        Loader loader(base->connection);
        for (const NameColumn& names : NameColumns(base->kind)) {
            changed += names.withApostrophe(loader);
            loader.run(u"UPDATE %1 SET %2 = REPLACE(%3, %4, %5) %6"_s.arg(QLatin1StringView(names.table),
                                                                          QLatin1StringView(names.column), exact(names),
                                                                          apostrophe, acuteAccent, having(names)));
        }
        loader.commit();
    }
    return changed;
}

} // namespace vorta::kit
