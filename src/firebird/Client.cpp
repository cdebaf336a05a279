#include "firebird/Client.h"

#include "base/Journal.h"
#include "base/Literals.h"
#include "firebird/ClientLibrary.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/EngineReasons.h"
#include "firebird/OpenFailure.h"

#include <algorithm>
#include <array>

namespace vorta::firebird {

namespace {

/// Classes of SQLSTATE that are not a mere refusal of a statement.
constexpr std::string_view constraintClass = "23";
constexpr std::string_view connectionClass = "08";

/// Failures of a living connection that mean it is gone although their SQLSTATE says otherwise.
constexpr std::array<intptr_t, 5> lostCodes{isc_network_error, isc_net_write_err, isc_net_read_err,
                                            isc_lost_db_connection, isc_att_shutdown};

struct Failure {
    QString words;
    int code;
    QByteArray sqlState;
};

Failure read(const Firebird::FbException& failure) {
    Firebird::IStatus* const status = failure.getStatus();
    std::array<char, 2048> words{};
    Master().getUtilInterface()->formatStatus(words.data(), words.size(), status);
    std::array<char, 6> sqlState{};
    Client().sqlState(sqlState.data(), status->getErrors());
    return {QString::fromUtf8(words.data()), static_cast<int>(status->getErrors()[1]), QByteArray(sqlState.data())};
}

int numberOf(const Failure& failure) {
    if (failure.sqlState.startsWith(constraintClass.data()))
        return errorNumber::ConstraintViolated;
    const bool lost = std::find(lostCodes.begin(), lostCodes.end(), failure.code) != lostCodes.end();
    return lost || failure.sqlState.startsWith(connectionClass.data()) ? errorNumber::ConnectionFailed
                                                                       : errorNumber::StatementRefused;
}

} // namespace

Firebird::IMaster& Master() {
    PrepareEmbeddedEngine();
    static Firebird::IMaster* const master = Client().masterInterface();
    return *master;
}

RuntimeError ToRuntimeError(const Firebird::FbException& failure, const QString& statement) {
    const Failure told = read(failure);
    const QString reason = ReasonOf(failure.getStatus()->getErrors());
    return {numberOf(told), reason.isEmpty() ? told.words : reason, told.code, QString::fromLatin1(told.sqlState),
            statement};
}

RuntimeError ToOpenError(const Firebird::FbException& failure) {
    const Failure told = read(failure);
    Journal(u"motor do banco de dados: %1"_s.arg(told.words));
    if (const std::optional<QString> words = OpenFailureWords(*failure.getStatus()))
        return RuntimeError(errorNumber::ConnectionFailed, *words);
    const QString reason = OpeningReasonOf(failure.getStatus()->getErrors());
    return {errorNumber::ConnectionFailed, reason, told.code, QString::fromLatin1(told.sqlState), {}};
}

} // namespace vorta::firebird
