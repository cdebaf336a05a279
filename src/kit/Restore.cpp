#include "kit/Copies.h"

#include "base/RuntimeError.h"
#include "base/Windows1252.h"
#include "firebird/BaseGuard.h"
#include "firebird/Services.h"
#include "kit/Bases.h"
#include "kit/FaultWords.h"
#include "kit/Loader.h"
#include "system/Files.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <ibase.h>

#include <filesystem>

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
        if (progress_ && !bytes.isEmpty())
            progress_(u"bytes restaurados"_s, file_.pos(), file_.size());
        if (progress_ && file_.atEnd())
            progress_(u"índices"_s, 0, 0);
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
    if (progress)
        progress(u"a base restaurada é verificada"_s, 0, 0);
    if (firebird::ValidateAlone(base).errors > 0)
        throw RuntimeError(errorNumber::StatementRefused,
                           u"A base restaurada de %1 não passa na verificação do motor; nada foi alterado"_s.arg(copy));
}

/// The system's name of a path.
std::filesystem::path nameOf(const QString& path) {
    return QFileInfo(path).filesystemFilePath();
}

/// Who gets the file for himself knows that nobody has it open, and nobody can open it from then on.
class Alone {
  public:
    explicit Alone(const QString& path) : file_(path, system::OpenFile::How::Read, system::Links::Followed) {
        if (!file_.isOpen())
            throw RuntimeError(errorNumber::PathRefused, u"Falta o direito de ler %1"_s.arg(path));
        if (!file_.takeFromEngine())
            refuseUsed(path);
    }

    /// Gives another file the owner and the rights of this one.
    void handOn(const QString& path) const {
        const std::optional<system::FileState> own = file_.state();
        if (!own)
            return;
        system::GiveTo(path, own->owner, own->group); // only root may give files away
        system::SetRights(path, own->rights & 0777);
    }

  private:
    system::OpenFile file_;
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
        std::error_code refused;
        std::filesystem::create_hard_link(nameOf(path), nameOf(aside), refused);
        if (!refused)
            return aside;
        if (refused != std::errc::file_exists)
            return {};
    }
}

/// A restoration that was killed in its last steps leaves the base a second name, which is none of anybody's.
void dropSecondNames(const QString& path) {
    const std::optional<system::FileState> base = system::StateOf(path);
    if (!base || base->names < 2)
        return;
    const QFileInfo file(path);
    const QStringList marks{marked(file.fileName(), u"nova"_s), marked(file.fileName(), u"antes-*"_s)};
    for (const QFileInfo& entry : file.dir().entryInfoList(marks, QDir::Files)) {
        const auto other = system::StateOf(entry.filePath(), system::Links::Themselves);
        if (other && other->id == base->id)
            QFile::remove(entry.filePath());
    }
}

/// Only on a name that nobody has.
bool moveToFreeName(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code refused;
    std::filesystem::create_hard_link(from, to, refused);
    return !refused && std::filesystem::remove(from, refused);
}

bool moveOver(const std::filesystem::path& from, const std::filesystem::path& to) {
    std::error_code refused;
    std::filesystem::rename(from, to, refused);
    return !refused;
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
    const auto from = nameOf(fresh.path), to = nameOf(base.path);
    bool done = false;
    if (replaces) {
        old->handOn(fresh.path);
        // The old file keeps a name of its own, and the base's name changes hands in one step.
        restored.previous = keepAside(base.path);
        done = !restored.previous.isEmpty() && moveOver(from, to);
    } else {
        done = moveToFreeName(from, to);
    }
    if (!done)
        throw RuntimeError(errorNumber::PathRefused,
                           u"Não foi possível gravar %1: %2"_s.arg(base.path, WhyNotWritten(base.path)));
    work.keep();
    system::SyncFolder(QFileInfo(base.path).path());
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
