#include "firebird/EngineReasons.h"

#include "base/Literals.h"
#include "system/Failures.h"

#include <array>
#include <firebird/Interface.h>

namespace vorta::firebird {

namespace {

/// Calls `visit` with the kind and the value of each item of the vector, until one answers true.
template <typename Visit>
bool anyOf(const intptr_t* errors, Visit visit) {
    for (const intptr_t* item = errors; *item != isc_arg_end; item += *item == isc_arg_cstring ? 3 : 2)
        if (visit(item[0], item[1]))
            return true;
    return false;
}

/// The system's own number of the failure, such as ENOSPC; 0 when the vector carries none.
int systemNumber(const intptr_t* errors) {
    int number = 0;
    anyOf(errors, [&](intptr_t kind, intptr_t value) {
        if (kind == isc_arg_unix || kind == isc_arg_win32)
            number = static_cast<int>(value);
        return number != 0;
    });
    return number;
}

struct Reason {
    intptr_t code;
    const char* words;
};

constexpr const char* lost = "A ligação com o servidor do banco de dados caiu";

/// In the order of their weight: the first that the vector tells is the reason.
constexpr std::array reasons{
    Reason{isc_lock_timeout, "O registro está sendo gravado por outro usuário e não foi liberado em %1 segundos. "
                             "Tente novamente."},
    // So it tells a wait that was in vain as well.
    Reason{isc_update_conflict, "O registro está sendo gravado por outro usuário e não foi liberado em %1 segundos. "
                                "Tente novamente."},
    Reason{isc_deadlock, "O registro está sendo gravado por outro usuário ao mesmo tempo. Tente novamente."},
    Reason{isc_lock_conflict, "O registro está sendo gravado por outro usuário. Tente novamente."},
    Reason{isc_net_read_err, lost},
    Reason{isc_net_write_err, lost},
    Reason{isc_network_error, lost},
    Reason{isc_lost_db_connection, lost},
    Reason{isc_att_shutdown, "A base de dados foi fechada enquanto era usada"},
};

constexpr std::array openingReasons{
    Reason{isc_wrong_ods, "a base é de outra versão do motor"},
    Reason{isc_bad_db_format, "o arquivo não é uma base de dados"},
    Reason{isc_instance_conflict, "a base está aberta por outro programa do motor, que não a divide com este"},
    Reason{isc_lock_dir_access, "a pasta de travas não pode ser usada por este usuário"},
    Reason{isc_login, "o usuário ou a senha da base não confere"},
    Reason{isc_network_error, "o servidor do banco de dados não responde"},
    Reason{isc_unavailable, "não há um motor para esta base"},
    Reason{isc_no_priv, "o usuário não tem direito sobre a base"},
    Reason{isc_shutdown, "a base está fechada para manutenção"},
    Reason{isc_charset_not_installed, "faltam os caracteres da base no motor"},
    Reason{isc_collation_not_installed, "falta a ordenação da base no motor"},
    Reason{isc_bad_checksum, "a base está danificada"},
    Reason{isc_db_corrupt, "a base está danificada"},
    Reason{isc_bug_check, "a base está danificada"},
    Reason{isc_badpage, "a base está danificada"},
    Reason{isc_badpagtyp, "a base está danificada"},
    Reason{isc_page_type_err, "a base está danificada"},
};

struct SystemFailure {
    system::Failure failure;
    const char* words;
};

constexpr std::array systemReasons{
    SystemFailure{system::Failure::NoFile, "o arquivo da base não existe"},
    SystemFailure{system::Failure::NoRight, "este usuário não tem direito sobre o arquivo da base ou sua pasta"},
    SystemFailure{system::Failure::ReadOnlyDisk, "a base está em um disco que não pode ser gravado"},
    SystemFailure{system::Failure::FullDisk, "o disco está cheio"},
    SystemFailure{system::Failure::UsedUpQuota, "o espaço deste usuário no disco acabou"},
    SystemFailure{system::Failure::DiskError, "o disco falhou"},
    SystemFailure{system::Failure::TooManyFiles, "há arquivos demais abertos"},
};

template <std::size_t count>
QString firstOf(const std::array<Reason, count>& table, const intptr_t* errors) {
    for (const Reason& reason : table)
        if (Tells(errors, reason.code))
            return QString::fromUtf8(reason.words);
    return {};
}

} // namespace

QString SystemReason(int number) {
    for (const SystemFailure& reason : systemReasons)
        if (reason.failure == system::FailureOf(number))
            return QString::fromUtf8(reason.words);
    return {};
}

bool Tells(const intptr_t* errors, intptr_t code) {
    return anyOf(errors, [&](intptr_t kind, intptr_t value) { return kind == isc_arg_gds && value == code; });
}

QString ReasonOf(const intptr_t* errors) {
    if (Tells(errors, isc_io_error))
        if (const QString words = SystemReason(systemNumber(errors)); !words.isEmpty())
            return u"O banco de dados não pôde gravar ou ler: %1"_s.arg(words);
    QString words = firstOf(reasons, errors);
    return words.replace(u"%1"_s, QString::number(lockSeconds));
}

QString OpeningReasonOf(const intptr_t* errors) {
    if (const QString words = firstOf(openingReasons, errors); !words.isEmpty())
        return words;
    if (const QString words = SystemReason(systemNumber(errors)); !words.isEmpty())
        return words;
    return u"o motor recusou a base (código %1)"_s.arg(errors[1]);
}

} // namespace vorta::firebird
