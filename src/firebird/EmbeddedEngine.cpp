#include "firebird/EmbeddedEngine.h"

#include "base/Literals.h"
#include "firebird/ConnectionText.h"
#include "firebird/EngineFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <filesystem>
#include <mutex>

namespace vorta::firebird {

namespace {

/// Classic lets several processes share a database file. Without the loopback provider a file that cannot be opened
/// here is not tried once more through a server that happens to run on this machine.
QByteArray configuration() {
    return QByteArray("ServerMode = Classic\nDefaultDbCachePages = 2048\nProviders = Remote,") +
           EngineInUse().provider + '\n';
}

#ifdef Q_OS_WIN
constexpr char standardHome[] = "c:/vorta";
#else
constexpr char standardHome[] = "/opt/vorta";
#endif

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Writes a file whole or not at all, since another program may start at the same moment. What cannot be written shows
/// when a database is opened.
void writeFile(const QString& path, const QByteArray& content) {
    QSaveFile saved(path);
    if (saved.open(QIODevice::WriteOnly) && saved.write(content) == content.size())
        saved.commit();
}

/// The engine's parts change with its version, so what the folder holds of them is looked at each time.
void keep(const QDir& root, const RootFile& file) {
    const QFileInfo there(root.filePath(file.name));
    root.mkpath(QFileInfo(file.name).path());
    if (file.copyOf.isEmpty()) {
        if (contentOf(there.filePath()) != file.text)
            writeFile(there.filePath(), file.text);
        return;
    }
    const QFileInfo original(file.copyOf);
    if (!there.exists() || there.size() != original.size() || there.lastModified() < original.lastModified())
        writeFile(there.filePath(), contentOf(file.copyOf));
}

/// The colleagues of the folder's group open the same databases, so its lock files are theirs too.
void shareWithGroup(const QString& folder) {
    using std::filesystem::perms;
    std::error_code notOurs;
    std::filesystem::permissions(
        folder.toStdString(),
        perms::owner_all | perms::group_all | perms::others_read | perms::others_exec | perms::set_gid, notOurs);
}

void prepare(const QString& givenHome) {
    const QString home = !givenHome.isEmpty() ? givenHome : qEnvironmentVariable("VORTA_HOME", standardHome);
    const QDir root(QDir(home).absoluteFilePath(u"firebird"_s));
    const QString lock = root.filePath(u"lock"_s);
    if (!QFile::exists(lock) && root.mkpath(lock))
        shareWithGroup(lock);
    keep(root, {u"firebird.conf"_s, configuration(), {}});
    for (const RootFile& file : EngineRootFiles())
        keep(root, file);
    qputenv("FIREBIRD", QFile::encodeName(root.path()));
    qputenv("FIREBIRD_LOCK", QFile::encodeName(lock));
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

Handle<Firebird::IAttachment> attach(const ConnectionText& text, Parameters& parameters) {
    Status status;
    return Handle<Firebird::IAttachment>(provider()->attachDatabase(&status, text.database.toUtf8().constData(),
                                                                    parameters.length(), parameters.bytes()));
}

} // namespace

void PrepareEmbeddedEngine(const QString& home) {
    static std::once_flag once;
    std::call_once(once, prepare, home);
}

Handle<Firebird::IAttachment> Attach(const QString& connectionString, int timeoutSeconds) {
    const ConnectionText text = ReadConnectionText(connectionString);
    return opening([&] {
        Parameters parameters(text);
        if (!text.embedded)
            parameters.add(isc_dpb_connect_timeout, timeoutSeconds);
        return attach(text, parameters);
    });
}

void CreateDatabase(const QString& connectionString, const DatabaseOptions& options) {
    const ConnectionText text = ReadConnectionText(connectionString);
    opening([&] {
        Parameters parameters(text);
        parameters.add(isc_dpb_page_size, options.pageSize);
        parameters.add(isc_dpb_force_write, options.forcedWrites ? 1 : 0);
        Status status;
        Handle<Firebird::IAttachment> database(provider()->createDatabase(&status, text.database.toUtf8().constData(),
                                                                          parameters.length(), parameters.bytes()));
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
    opening([&] {
        Parameters parameters(text);
        parameters.add(isc_dpb_force_write, on ? 1 : 0);
        Status status;
        Handle<Firebird::IAttachment> database = attach(text, parameters);
        EndWith(database, [&](auto* open) { open->detach(&status); });
    });
}

} // namespace vorta::firebird
