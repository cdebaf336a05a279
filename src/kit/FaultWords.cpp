#include "kit/FaultWords.h"

#include "base/Literals.h"

#include <algorithm>
#include <array>
#include <ibase.h>

namespace vorta::kit {

namespace {

/// Messages of the engine's backup work, which its headers do not name.
constexpr int copyGbakFirst = 336330752;
constexpr int databaseExists = copyGbakFirst + 14;
constexpr int noBackupHeader = copyGbakFirst + 45;
constexpr int copyEndsEarly = copyGbakFirst + 220;
constexpr int newerCopy = copyGbakFirst + 344;

struct Words {
    int code;
    const char16_t* words;
};

constexpr std::array all{
    Words{isc_io_error, u"um arquivo da base não existe ou não pode ser lido ou gravado"},
    Words{isc_unavailable, u"o servidor não pode ser alcançado"},
    Words{isc_network_error, u"o servidor não pode ser alcançado"},
    Words{isc_net_connect_err, u"o servidor não pode ser alcançado"},
    Words{isc_net_read_err, u"a ligação com o servidor caiu"},
    Words{isc_net_write_err, u"a ligação com o servidor caiu"},
    Words{isc_lost_db_connection, u"a ligação com o servidor caiu"},
    Words{isc_att_shutdown, u"a base foi fechada enquanto era usada"},
    Words{isc_shutdown, u"a base está fechada para manutenção"},
    Words{isc_shutfail, u"a base está em uso"},
    Words{isc_login, u"o servidor recusa o usuário ou a senha"},
    Words{isc_no_priv, u"o usuário não tem direito a esta operação"},
    Words{isc_bad_db_format, u"o arquivo não é uma base, ou está danificado"},
    Words{isc_db_corrupt, u"a base está danificada"},
    Words{isc_corrupt, u"a base está danificada"},
    Words{isc_badblk, u"a base está danificada"},
    Words{isc_bug_check, u"a base está danificada"},
    Words{isc_bad_checksum, u"a base está danificada"},
    Words{isc_io_32bit_exceeded_err, u"a base ficou grande demais para o disco"},
    Words{isc_lock_timeout, u"a base está em uso"},
    Words{isc_lock_conflict, u"a base está em uso"},
    Words{isc_no_meta_update, u"a base não aceita as definições da cópia"},
    Words{databaseExists, u"a base já existe"},
    Words{noBackupHeader, u"o arquivo não é uma cópia de segurança"},
    Words{copyEndsEarly, u"a cópia está incompleta"},
    Words{newerCopy,
          u"a cópia foi feita por um motor mais novo que este, que não a lê; restaure-a com o motor que a fez, "
          "ou com um mais novo"},
};

} // namespace

QString FaultWords(const RuntimeError& error) {
    if (error.engineCode() == 0)
        return error.description();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const Words& each) { return each.code == error.engineCode(); });
    return found != all.end() ? QString::fromUtf16(found->words)
                              : u"o motor recusou a operação (código %1)"_s.arg(error.engineCode());
}

} // namespace vorta::kit
