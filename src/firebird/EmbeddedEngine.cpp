#include "firebird/EmbeddedEngine.h"

#include "base/Literals.h"
#include "firebird/ConnectionText.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <filesystem>
#include <mutex>

#ifndef Q_OS_WIN
#include <dlfcn.h>
#endif

namespace vorta::firebird {

namespace {

/// Classic lets several processes share a database file. Without the loopback provider a file that cannot be opened
/// here is not tried once more through a server that happens to run on this machine.
constexpr char configuration[] = "ServerMode = Classic\n"
                                 "Providers = Remote,Engine12\n"
                                 "DefaultDbCachePages = 2048\n";

#ifdef Q_OS_WIN
constexpr char standardHome[] = "c:/vorta";
#else
constexpr char standardHome[] = "/opt/vorta";
#endif

/// Writes a file whole or not at all, since another program may start at the same moment. What cannot be written shows
/// when a database is opened.
void writeFile(const QString& path, const QByteArray& content) {
    QSaveFile saved(path);
    if (saved.open(QIODevice::WriteOnly) && saved.write(content) == content.size())
        saved.commit();
}

#ifndef Q_OS_WIN
/// The module of character sets that belongs to the client library in use, in the layout of a distribution or of the
/// engine's own installation.
QFileInfo characterSetsModule() {
    Dl_info library{};
    if (dladdr(reinterpret_cast<const void*>(&Firebird::fb_get_master_interface), &library) == 0)
        return {};
    const QDir folder = QFileInfo(QFileInfo(QFile::decodeName(library.dli_fname)).canonicalFilePath()).dir();
    for (const char* place : {"firebird/3.0/intl/libfbintl.so", "../intl/libfbintl.so"})
        if (const QFileInfo module(folder.filePath(QString::fromLatin1(place))); module.exists())
            return module;
    return {};
}

/// The engine loads Windows-1252 from its root and refuses a link there, so the root holds a copy, renewed when the
/// engine is.
void copyCharacterSets(const QDir& root) {
    const QFileInfo module = characterSetsModule();
    const QFileInfo copy(root.filePath(u"intl/libfbintl.so"_s));
    if (!module.exists() ||
        (copy.exists() && copy.size() == module.size() && copy.lastModified() >= module.lastModified()))
        return;
    root.mkpath(u"intl"_s);
    QFile content(module.filePath());
    if (content.open(QIODevice::ReadOnly))
        writeFile(copy.filePath(), content.readAll());
}
#endif

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
    const QString file = root.filePath(u"firebird.conf"_s);
    if (!QFile::exists(file))
        writeFile(file, configuration);
#ifndef Q_OS_WIN
    copyCharacterSets(root);
#endif
    qputenv("FIREBIRD", QFile::encodeName(root.path()));
    qputenv("FIREBIRD_LOCK", QFile::encodeName(lock));
}

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
        parameters.add(isc_dpb_set_db_charset, options.characterSet);
        parameters.add(isc_dpb_force_write, options.forcedWrites ? 1 : 0);
        Status status;
        Handle<Firebird::IAttachment> database(provider()->createDatabase(&status, text.database.toUtf8().constData(),
                                                                          parameters.length(), parameters.bytes()));
        const QByteArray collation =
            u"ALTER CHARACTER SET %1 SET DEFAULT COLLATION %2"_s.arg(options.characterSet, options.collation).toUtf8();
        Handle<Firebird::ITransaction> transaction(database->startTransaction(&status, 0, nullptr));
        database->execute(&status, transaction.get(), 0, collation.constData(), SQL_DIALECT_V6, nullptr, nullptr,
                          nullptr, nullptr);
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
