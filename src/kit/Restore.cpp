#include "kit/Copies.h"

#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "firebird/BaseGuard.h"
#include "firebird/Services.h"
#include "kit/Bases.h"
#include "kit/FaultWords.h"
#include "kit/Loader.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <ibase.h>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace vorta::kit {

namespace {

using firebird::ConnectionText;

[[noreturn]] void refuseExisting(const QString& base) {
    throw RuntimeError(
        errorNumber::FileAlreadyExists,
        u"A base %1 já existe e não foi tocada; para pôr a cópia no lugar dela, use --replace"_s.arg(base));
}

[[noreturn]] void refuseUsed(const QString& base) {
    throw RuntimeError(errorNumber::PermissionDenied,
                       u"A base %1 está em uso; feche o programa em todas as sessões. Nada foi alterado"_s.arg(base));
}

QString stamp() {
    return QDateTime::currentDateTime().toString(u"yyyyMMdd-hhmmss"_s);
}

/// A base's path with a word in front of its suffix.
QString marked(const QString& path, const QString& mark) {
    const qsizetype dot = path.lastIndexOf(u'.');
    const qsizetype slash = std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\'));
    return dot > slash ? path.first(dot) + u'-' + mark + path.sliced(dot) : path + u'-' + mark;
}

class CopyReader {
  public:
    CopyReader(const QString& path, const Progress& progress) : file_(path), progress_(progress) {
        if (!QFileInfo(path).isFile() || !file_.open(QIODevice::ReadOnly))
            throw RuntimeError(errorNumber::FileNotFound, u"A cópia %1 não existe ou não pode ser lida"_s.arg(path));
    }
    QByteArray operator()(qsizetype most) {
        const QByteArray bytes = file_.read(most);
        if (progress_)
            progress_(u"bytes restaurados"_s, file_.pos(), file_.size());
        return bytes;
    }

  private:
    QFile file_;
    const Progress& progress_;
};

/// Restores and looks at what came of it, for itself alone.
void makeAnew(const ConnectionText& base, const QString& copy, const Progress& progress) {
    CopyReader reader(copy, progress);
    firebird::Restore(base, std::ref(reader));
    if (firebird::ValidateAlone(base).errors > 0)
        throw RuntimeError(errorNumber::StatementRefused,
                           u"A base restaurada de %1 não passa na verificação do motor; nada foi alterado"_s.arg(copy));
}

/// The engine holds every base file that it has open, in whatever program, with a shared lock of the system; who gets
/// the file for himself knows that nobody has it open, and nobody can open it from then on.
class Alone {
  public:
    explicit Alone(const QString& path) : file_(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC)) {
        if (file_ < 0)
            throw RuntimeError(errorNumber::PathRefused, u"Falta o direito de ler %1"_s.arg(path));
        if (::flock(file_, LOCK_EX | LOCK_NB) != 0) {
            ::close(file_);
            refuseUsed(path);
        }
    }
    ~Alone() { ::close(file_); }
    Alone(const Alone&) = delete;
    Alone& operator=(const Alone&) = delete;

    /// Gives another file the owner and the rights of this one.
    void handOn(const QString& path) const {
        struct stat own {};
        const QByteArray name = QFile::encodeName(path);
        if (::fstat(file_, &own) != 0)
            return;
        (void)!::chown(name.constData(), own.st_uid, own.st_gid); // only root may give files away
        (void)::chmod(name.constData(), own.st_mode & 0777);
    }

  private:
    int file_;
};

/// A file of work that goes unless it has been kept, under another name.
class WorkFile {
  public:
    explicit WorkFile(const QString& path) : path_(path) {
        // One that a killed restoration left; that of a running one is held by its engine.
        if (QFile::exists(path)) {
            const Alone abandoned(path);
            QFile::remove(path);
        }
    }
    ~WorkFile() {
        if (!kept_)
            QFile::remove(path_);
        QFile::remove(firebird::BaseGuard::fileOf(path_)); // nobody opens a base by this name any more
    }
    void keep() { kept_ = true; }

  private:
    QString path_;
    bool kept_ = false;
};

/// Gives a file a second name, with the time in it; nothing when it cannot.
QString keepAside(const QString& path) {
    const QString mark = u"antes-"_s + stamp();
    for (int turn = 1;; ++turn) {
        const QString aside = marked(path, turn == 1 ? mark : u"%1-%2"_s.arg(mark).arg(turn));
        if (::link(QFile::encodeName(path).constData(), QFile::encodeName(aside).constData()) == 0)
            return aside;
        if (errno != EEXIST)
            return {};
    }
}

/// A restoration that was killed in its last steps leaves the base a second name, which is none of anybody's.
void dropSecondNames(const QString& path) {
    struct stat base {};
    if (::stat(QFile::encodeName(path).constData(), &base) != 0 || base.st_nlink < 2)
        return;
    const QFileInfo file(path);
    const QStringList marks{marked(file.fileName(), u"nova"_s), marked(file.fileName(), u"antes-*"_s)};
    for (const QFileInfo& entry : file.dir().entryInfoList(marks, QDir::Files)) {
        struct stat other {};
        const QByteArray name = QFile::encodeName(entry.filePath());
        if (::lstat(name.constData(), &other) == 0 && other.st_dev == base.st_dev && other.st_ino == base.st_ino)
            ::unlink(name.constData());
    }
}

void syncFolderOf(const QString& path) {
    const int folder =
        ::open(QFile::encodeName(QFileInfo(path).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
        ::fsync(folder);
        ::close(folder);
    }
}

Restored restoreHere(const ConnectionText& base, const QString& copy, bool replace, const Progress& progress) {
    const bool replaces = QFile::exists(base.path);
    if (replaces && !replace)
        refuseExisting(base.path);
    Restored restored{base.path, {}, {}};
    std::optional<Alone> old;
    if (replaces)
        old.emplace(base.path);
    dropSecondNames(base.path);
    const ConnectionText fresh = firebird::ReadConnectionText(base.of(marked(base.path, u"nova"_s)));
    WorkFile work(fresh.path);
    makeAnew(fresh, copy, progress);
    const QByteArray from = QFile::encodeName(fresh.path), to = QFile::encodeName(base.path);
    bool done = false;
    if (replaces) {
        old->handOn(fresh.path);
        // The old file keeps a name of its own, and the base's name changes hands in one step.
        restored.previous = keepAside(base.path);
        done = !restored.previous.isEmpty() && ::rename(from.constData(), to.constData()) == 0;
    } else {
        done = ::link(from.constData(), to.constData()) == 0 && ::unlink(from.constData()) == 0;
    }
    if (!done)
        throw RuntimeError(errorNumber::PathRefused,
                           u"Não foi possível gravar %1: %2"_s.arg(base.path, WhyNotWritten(base.path)));
    work.keep();
    syncFolderOf(base.path);
    return restored;
}

/// Nothing but a missing file makes a restoration possible without being told to replace.
bool existsOnServer(const ConnectionText& base) {
    try {
        Loader probe(base.of(base.path));
        return true;
    } catch (const RuntimeError& error) {
        static const QList<int> unreachable{isc_network_error, isc_net_connect_err, isc_unavailable, isc_login};
        if (unreachable.contains(error.engineCode()))
            throw;
        return error.engineCode() != isc_io_error;
    }
}

/// The real path of a base that the server may know by another name.
QString pathOnServer(const ConnectionText& base) {
    if (base.path.contains(u'/') || base.path.contains(u'\\'))
        return base.path;
    return Loader(base.of(base.path)).rows(u"SELECT MON$DATABASE_NAME FROM MON$DATABASE"_s)[0][0];
}

/// Writes the line of the configuration anew, whole or not at all. Every other byte of the file stays.
QString rewriteLine(const NamedBase& named, const ConnectionText& base, const QString& path) {
    QString connection = named.connection;
    const qsizetype at = connection.lastIndexOf(base.path);
    if (base.path.contains(u'/') || base.path.contains(u'\\'))
        connection.replace(at, base.path.size(), path);
    else
        connection = base.of(path);
    QFile file(named.file);
    QSaveFile saved(named.file);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(errorNumber::PathRefused, u"Falta o direito de ler %1"_s.arg(named.file));
    QList<QByteArray> lines = file.readAll().split('\n');
    QByteArray& line = lines[named.line];
    const QByteArray before = line;
    line.replace(named.connection.toUtf8(), connection.toUtf8());
    if (line == before)
        line.replace(ToWindows1252(named.connection), ToWindows1252(connection));
    saved.setDirectWriteFallback(false);
    if (!saved.open(QIODevice::WriteOnly) || saved.write(lines.join('\n')) < 0 || !saved.commit())
        throw RuntimeError(errorNumber::PathRefused,
                           u"Não foi possível gravar %1: %2"_s.arg(named.file, WhyNotWritten(named.file)));
    return connection;
}

void drop(const ConnectionText& base) {
    try {
        firebird::Drop(base);
    } catch (const RuntimeError&) {
        // It was not made, or the server is gone; the failure that led here is the one to tell.
    }
}

Restored restoreThere(const NamedBase& named, const ConnectionText& base, const QString& copy, bool replace,
                      const Progress& progress) {
    const bool replaces = existsOnServer(base);
    if (replaces && !replace)
        refuseExisting(base.database);
    const QString path = replaces ? marked(pathOnServer(base), stamp()) : base.path;
    const ConnectionText fresh = firebird::ReadConnectionText(base.of(path));
    try {
        makeAnew(fresh, copy, progress);
        if (!replaces)
            return {fresh.database, {}, {}};
        firebird::ShutDown(base);
    } catch (const RuntimeError& error) {
        drop(fresh);
        if (error.engineCode() == isc_shutfail)
            refuseUsed(base.database);
        throw;
    }
    return {fresh.database, base.database, rewriteLine(named, base, path)};
}

} // namespace

Restored RestoreBase(const QString& home, const QString& base, const QString& file, bool replace,
                     const Progress& progress) {
    const NamedBase named = FindBase(home, base);
    const ConnectionText text = firebird::ReadConnectionText(named.connection);
    return text.embedded ? restoreHere(text, file, replace, progress)
                         : restoreThere(named, text, file, replace, progress);
}

} // namespace vorta::kit
