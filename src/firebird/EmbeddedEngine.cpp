#include "firebird/EmbeddedEngine.h"

#include "base/Journal.h"
#include "base/Literals.h"
#include "firebird/ConnectionText.h"
#include "firebird/EngineRoot.h"
#include "firebird/LockFiles.h"
#include "system/Endings.h"
#include "system/Process.h"
#include "system/SharedMutexes.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <mutex>

namespace vorta::firebird {

namespace {

/// The engine's configuration as installations used to hold it, where all could write it. Nothing reads it any more but
/// the engine's own tools, and these would then open a base beside the programs without sharing their locks; without it
/// they are refused while a program has the base open.
void retireConfiguration(const QString& lockFolder) {
    QFile file(QDir(lockFolder).filePath(u"../firebird.conf"_s));
    if (!file.open(QIODevice::ReadOnly))
        return;
    QByteArrayList lines = file.read(1000).trimmed().split('\n');
    std::sort(lines.begin(), lines.end());
    if (lines.size() == 3 && lines[0] == "DefaultDbCachePages = 2048" &&
        lines[1].startsWith("Providers = Remote,Engine") && lines[2] == "ServerMode = Classic")
        file.remove();
}

/// The lock folder in force; empty before the first base.
QString& locksInForce() {
    static QString folder;
    return folder;
}

void useLocks(const QString& chosen) {
    static std::once_flag once;
    std::call_once(once, [&] {
        MakeLockFolder(chosen);
        retireConfiguration(chosen);
        qputenv("FIREBIRD_LOCK", QFile::encodeName(chosen));
        locksInForce() = chosen;
    });
}

/// What the engine needs for its own end, whoever ends the process: with its lock folder gone it would abort, and with
/// an interruption left over in `errno` (a display that has gone ends the process in the middle of a call) it would
/// repeat a file operation for ever (see `Status`). Has to be asked for when the engine is loaded, so that it comes
/// before the engine's own end.
void letEngineEnd() {
    static std::once_flag once;
    std::call_once(once, [] {
        system::AtEnd([](int status) {
            if (LocksAreGone())
                system::EndHere(status);
            errno = 0;
        });
    });
}

/// The lock folder of this process: that of the first base it opens. The engine knows one for a process.
const QString& locksFor(const QString& database) {
    useLocks(LockFolderOf(database));
    MakeLockFolder(locksInForce()); // again, should it have gone
    return locksInForce();
}

/// Version 4 gives sums and the clock in types that version 3 does not have: wider numbers, and moments with a time
/// zone. A connection asks for the ones that both have, so that a statement gives the same on either, whichever the
/// version of this program's own client library. Version 3 passes over the wish.
constexpr unsigned char bindTypes = 93; // isc_dpb_set_bind, which the headers of version 3 do not name
constexpr char16_t typesOfVersion3[] = u"int128 to legacy;decfloat to legacy;time zone to legacy";

/// A parameter block of the client interface under construction.
class Parameters {
  public:
    explicit Parameters(const ConnectionText& text)
        : block_(Master().getUtilInterface()->getXpbBuilder(&status_, Firebird::IXpbBuilder::DPB, nullptr, 0)) {
        add(isc_dpb_utf8_filename);
        add(isc_dpb_lc_ctype, u"UTF8"_s);
        add(isc_dpb_sql_dialect, SQL_DIALECT_V6);
        add(isc_dpb_user_name, text.user);
        add(isc_dpb_password, text.password);
        add(isc_dpb_sql_role_name, text.role);
        add(bindTypes, QString::fromUtf16(typesOfVersion3));
    }
    void add(unsigned char tag) { block_->insertTag(&status_, tag); }
    void add(unsigned char tag, int value) { block_->insertInt(&status_, tag, value); }
    void add(unsigned char tag, const QString& value) {
        if (!value.isEmpty())
            block_->insertString(&status_, tag, value.toUtf8().constData());
    }
    unsigned length() { return block_->getBufferLength(&status_); }
    const unsigned char* bytes() { return block_->getBuffer(&status_); }

  private:
    Status status_;
    Owned<Firebird::IXpbBuilder> block_;
};

template <typename Work>
auto opening(Work work) {
    try {
        return work();
    } catch (const Firebird::FbException& failure) {
        throw ToOpenError(failure);
    }
}

Handle<Firebird::IProvider> provider() {
    return Handle<Firebird::IProvider>(Master().getDispatcher());
}

Attachment attach(const ConnectionText& text, Parameters& parameters) {
    const system::HeldEndings held(text.embedded); // a server may keep one waiting
    Status status;
    try {
        Attachment attachment(provider()->attachDatabase(&status, text.database.toUtf8().constData(),
                                                         parameters.length(), parameters.bytes()));
        SettleLocks(text);
        return attachment;
    } catch (const Firebird::FbException&) {
        SettleLocks(text); // the files are there all the same
        throw;
    }
}

} // namespace

void PrepareEmbeddedEngine(const QString& lockHome) {
    static std::once_flag once;
    std::call_once(once, [] {
        qputenv("FIREBIRD", QFile::encodeName(PrepareEngineRoot()));
        if (!system::SharedMutexesAreRobust())
            Journal(u"Um programa que termina no meio de uma gravação pode parar os outros neste sistema"_s);
    });
    if (!lockHome.isEmpty())
        useLocks(QDir::cleanPath(QDir(lockHome).absoluteFilePath(u"firebird/lock"_s)));
}

void PrepareOpening(const QString& connectionString) {
    PrepareEmbeddedEngine();
    if (const ConnectionText text = ReadConnectionText(connectionString); text.embedded)
        locksFor(text.database);
}

bool LocksAreGone() {
    return !locksInForce().isEmpty() && !QFileInfo(locksInForce()).isDir();
}

BaseGuard GuardOf(const ConnectionText& base) {
    PrepareEmbeddedEngine();
    if (!base.embedded)
        return {};
    const QString& folder = locksFor(base.database);
    BaseGuard guard(base.database, folder);
    RequireRoomForLocks(folder);
    SettleLockFiles(folder); // what one has left that fell
    return guard;
}

void SettleLocks(const ConnectionText& base) {
    if (base.embedded)
        SettleLockFiles(locksFor(base.database));
}

Attachment Attach(const QString& connectionString, int timeoutSeconds) {
    const ConnectionText text = ReadConnectionText(connectionString);
    BaseGuard guard = GuardOf(text);
    return opening([&] {
        Parameters parameters(text);
        if (!text.embedded)
            parameters.add(isc_dpb_connect_timeout, timeoutSeconds);
        Attachment attachment = attach(text, parameters);
        attachment.get_deleter().guard = std::move(guard);
        if (text.embedded)
            letEngineEnd();
        return attachment;
    });
}

void CreateDatabase(const QString& connectionString, const DatabaseOptions& options) {
    PrepareOpening(connectionString);
    const ConnectionText text = ReadConnectionText(connectionString);
    opening([&] {
        Parameters parameters(text);
        parameters.add(isc_dpb_page_size, options.pageSize);
        parameters.add(isc_dpb_force_write, options.forcedWrites ? 1 : 0);
        const system::HeldEndings held(text.embedded);
        Status status;
        Handle<Firebird::IAttachment> database(provider()->createDatabase(&status, text.database.toUtf8().constData(),
                                                                          parameters.length(), parameters.bytes()));
        SettleLocks(text);
        // By statements: given as a parameter, the character set of a new database has not yet its new collation for
        // the first who makes tables in version 4.
        Handle<Firebird::ITransaction> transaction(database->startTransaction(&status, 0, nullptr));
        for (const QString& setting :
             {u"ALTER DATABASE SET DEFAULT CHARACTER SET %1"_s.arg(options.characterSet),
              u"ALTER CHARACTER SET %1 SET DEFAULT COLLATION %2"_s.arg(options.characterSet, options.collation)})
            database->execute(&status, transaction.get(), 0, setting.toUtf8().constData(), SQL_DIALECT_V6, nullptr,
                              nullptr, nullptr, nullptr);
        EndWith(transaction, [&](auto* open) { open->commit(&status); });
        EndWith(database, [&](auto* open) { open->detach(&status); });
    });
}

void SetForcedWrites(const QString& connectionString, bool on) {
    const ConnectionText text = ReadConnectionText(connectionString);
    const BaseGuard guard = GuardOf(text);
    opening([&] {
        Parameters parameters(text);
        parameters.add(isc_dpb_force_write, on ? 1 : 0);
        Status status;
        Attachment database = attach(text, parameters);
        EndWith(database, [&](auto* open) { open->detach(&status); });
    });
}

} // namespace vorta::firebird
