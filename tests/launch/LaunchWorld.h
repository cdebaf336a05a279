#pragma once

#include "base/Literals.h"
#include "support/World.h"

namespace vorta::test {

/// A machine whose configuration files stand at their fixed place, on the engine of the given tag.
struct LaunchWorld : World {
    explicit LaunchWorld(const QString& tag = u"FIREBIRD"_s) {
        const QString line = u"SRV^BASE^sysdba^segredo^"_s + tag + u"^localhost:/base/%1.fdb^False"_s;
        platform.files = {
            {u"/vorta/config/server_aplic.ini"_s, {QString()}},
            {u"/vorta/config/server.ini"_s, {line.arg(u"prd"_s), line.arg(u"hist"_s), line.arg(u"dev"_s)}},
            {u"/vorta/config/server_cep.ini"_s, {line.arg(u"cep"_s)}},
            {u"/vorta/config/paths.ini"_s, {u"1^2^/img/^/grande/^.jpg^.png^/img/sem.jpg^8^9^/paginas/^11^12^"_s}},
        };
        database.answer(u"SELECT CODI_EMPR"_s, {{u"codi_empr"_s}, {{text("0001")}}});
        database.answer(u"SELECT NOME_CONH_EMPR"_s, {{u"nome_conh_empr"_s}, {{text("EMPRESA MODELO")}}});
        database.answer(u"FROM USEN"_s, {{u"IDUSEN"_s, u"usen"_s}, {{number(12), text("MARIA")}}});
    }
    QStringList& lines(const QString& file) { return platform.files[u"/vorta/config/"_s + file]; }
    const screen::Box& box() const {
        static const screen::Box none{u"no box"_s, {}, screen::Icon::None, screen::Buttons::OK};
        return platform.boxes.size() == 1 ? platform.boxes.front() : none;
    }
};

} // namespace vorta::test
