#pragma once

#include "support/World.h"

namespace vorta::test {

/// A machine whose configuration files stand at their fixed place, on the engine of the given tag.
struct LaunchWorld : World {
    explicit LaunchWorld(const QString& tag = QStringLiteral("FIREBIRD")) {
        const QString line = u"SRV^BASE^sysdba^segredo^"_qs + tag + u"^localhost:/base/%1.fdb^False"_qs;
        platform.files = {
            {u"/vorta/config/server_aplic.ini"_qs, {QString()}},
            {u"/vorta/config/server.ini"_qs, {line.arg(u"prd"_qs), line.arg(u"hist"_qs), line.arg(u"dev"_qs)}},
            {u"/vorta/config/server_cep.ini"_qs, {line.arg(u"cep"_qs)}},
            {u"/vorta/config/paths.ini"_qs, {u"1^2^/img/^/grande/^.jpg^.png^/img/sem.jpg^8^9^/paginas/^11^12^"_qs}},
        };
        database.answer(u"SELECT CODI_EMPR"_qs, {{u"codi_empr"_qs}, {{text("0001")}}});
        database.answer(u"SELECT NOME_CONH_EMPR"_qs, {{u"nome_conh_empr"_qs}, {{text("EMPRESA MODELO")}}});
        database.answer(u"FROM USEN"_qs, {{u"IDUSEN"_qs, u"usen"_qs}, {{number(12), text("MARIA")}}});
    }
    QStringList& linhas(const QString& file) { return platform.files[u"/vorta/config/"_qs + file]; }
    const screen::Box& box() const {
        static const screen::Box none{QStringLiteral("no box"), {}, screen::Icon::None, screen::Buttons::OK};
        return platform.boxes.size() == 1 ? platform.boxes.front() : none;
    }
};

} // namespace vorta::test
