#include "bench/SafetyCases.h"

#include "base/EngineWatch.h"
#include "base/Literals.h"
#include "bench/Lazy.h"
#include "data/Recordset.h"
#include "firebird/Client.h"
#include "firebird/EmbeddedEngine.h"
#include "firebird/FirebirdAdapter.h"
#include "system/Measures.h"

#include <QTemporaryDir>

namespace vorta::bench {

namespace {

using firebird::EndWith;
using firebird::Handle;
using firebird::Status;

constexpr int openings = 20;
constexpr int statements = 2000;
constexpr int locks = 1'000'000;
constexpr int secondsToOpen = 15;

class SafetyBench {
  public:
    SafetyBench() : path_(folder_.filePath(u"bench.fdb"_s)) {
        firebird::CreateDatabase(path_);
        connection_.Open(data::Engine::Firebird, path_);
    }
    data::Connection& connection() { return connection_; }
    const QString& path() const { return path_; }

    /// The engine's own opening and closing, with nothing of ours around it.
    void openBare() const {
        Status status;
        Firebird::IUtil* const tools = firebird::Master().getUtilInterface();
        const firebird::Owned<Firebird::IXpbBuilder> block(
            tools->getXpbBuilder(&status, Firebird::IXpbBuilder::DPB, nullptr, 0));
        block->insertString(&status, isc_dpb_user_name, "SYSDBA");
        const Handle<Firebird::IProvider> provider(firebird::Master().getDispatcher());
        Handle<Firebird::IAttachment> attachment(provider->attachDatabase(
            &status, path_.toUtf8().constData(), block->getBufferLength(&status), block->getBuffer(&status)));
        EndWith(attachment, [&](auto* open) { open->detach(&status); });
    }
    void open() const {
        firebird::Attachment attachment = firebird::Attach(path_, secondsToOpen);
        Status status;
        EndWith(attachment, [&](auto* open) { open->detach(&status); });
    }

  private:
    QTemporaryDir folder_;
    QString path_;
    data::Connection connection_{[](data::Engine) { return data::MakeFirebirdAdapter(); }};
};

using Bench = Lazy<SafetyBench>;

Case opening(const Bench& bench) {
    const auto side = [bench](void (SafetyBench::*open)() const) {
        return [bench, open] {
            return Microseconds(openings, [&] {
                for (int i = 0; i < openings; ++i)
                    ((*bench).*open)();
            });
        };
    };
    return {u"safety: a base opened and closed"_s, u"us/opening"_s, side(&SafetyBench::openBare),
            side(&SafetyBench::open), 1.3};
}

/// One more mark of the watch than each statement has already.
Case watch(const Bench& bench) {
    const auto run = [bench](bool marked) {
        return Microseconds(statements, [&] {
            data::Recordset rows;
            for (int i = 0; i < statements; ++i) {
                data::Statement query;
                query << "select rdb$relation_name from rdb$relations where rdb$relation_id = " << i % 30;
                if (marked)
                    const EngineCall call;
                rows.Open(query, bench->connection());
            }
        });
    };
    return {u"safety: a statement with one more mark of the watch"_s, u"us/statement"_s, [run] { return run(false); },
            [run] { return run(true); }, 1.1};
}

Case mutexes() {
    const auto pairs = [](void (*work)(int times)) {
        return [work] {
            constexpr double nanoseconds = 1000;
            return nanoseconds * Microseconds(locks, [work] { work(locks); });
        };
    };
    return {u"safety: a mutex locked and let go"_s, u"ns/pair"_s, pairs(system::LockPlainMutex),
            pairs(system::LockMutexOfProgram), 2.0};
}

} // namespace

std::vector<Case> SafetyCases() {
    const Bench bench;
    return {opening(bench), watch(bench), mutexes()};
}

} // namespace vorta::bench
