#include "firebird/BaseGuard.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "firebird/EngineReasons.h"
#include "system/Failures.h"
#include "system/Process.h"
#include "system/ThisSystem.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <QThread>

namespace vorta::firebird {

namespace {

/// The base's own file, whatever links lead to it; the path as it stands for a base that is still to be made.
QFileInfo placeOf(const QString& database) {
    const QString real = QFileInfo(database).canonicalFilePath();
    if (!real.isEmpty())
        return QFileInfo(real);
    const QFileInfo named(QFileInfo(database).absoluteFilePath());
    const QString folder = QFileInfo(named.path()).canonicalFilePath();
    return folder.isEmpty() ? named : QFileInfo(QDir(folder), named.fileName());
}

} // namespace

QString LockFolderOf(const QString& database) {
    const QDir folder = placeOf(database).dir();
    const QString ofInstallation = QDir::cleanPath(folder.filePath(u"../firebird/lock"_s));
    return QFileInfo(ofInstallation).isDir() ? ofInstallation : folder.filePath(u"travas"_s);
}

QString BaseGuard::fileOf(const QString& database) {
    return placeOf(database).filePath() + u".guarda"_s;
}

namespace {

using system::Failure;
using system::FileState;
using system::OpenFile;

/// How long somebody with another place may still take to go: a search in the postal codes, a check.
constexpr std::chrono::seconds patience{4};
constexpr unsigned long pauseMilliseconds = 20;
constexpr qsizetype mostBytes = 4096;

[[noreturn]] void refuse(const QString& words) {
    throw RuntimeError(errorNumber::ConnectionFailed, words);
}

/// What makes two lock folders the same: the same folder, mapped by the same kernel, and process numbers that mean the
/// same, since the engine asks by their number whether others still live.
QByteArray identityOf(const QString& lockFolder) {
    const std::optional<system::FileState> folder = system::StateOf(lockFolder);
    if (!folder)
        return {};
    return system::NumberSpace() + ' ' + QByteArray::number(folder->id.device) + ':' +
           QByteArray::number(folder->id.number);
}

/// The file's own number, 0 for none.
quint64 numberOf(const QString& path) {
    const std::optional<system::FileState> file = system::StateOf(path);
    return file ? file->id.number : 0;
}

/// The content of a guard file: the machine and the folder in words, and what is compared.
struct Place {
    QByteArray machine;
    QByteArray folder;
    QByteArray identity;

    QByteArray content() const { return machine + '\n' + folder + '\n' + identity + '\n'; }
};

Place placeIn(const OpenFile& file) {
    const QByteArrayList lines = file.read(mostBytes).split('\n');
    return {lines.value(0), lines.value(1), lines.value(2)};
}

/// The last failure in words.
QString why(const OpenFile& file) {
    const QString words = SystemReason(file.error());
    return words.isEmpty() ? u"erro %1 do sistema"_s.arg(file.error()) : words;
}

/// Without a word when the place is free in that mode.
bool lock(OpenFile& file, OpenFile::Lock mode) {
    if (file.lock(mode))
        return true;
    if (file.error() != 0)
        refuse(u"O sistema de arquivos da base não oferece travas (%1); a base não pode ser aberta com segurança"_s.arg(
            why(file)));
    return false;
}

/// A new guard file with the rights of the base; not open when another program makes it at this moment.
OpenFile makeFile(const FileState& base, const QString& path) {
    OpenFile file(path, OpenFile::How::MakeNew);
    // Whatever the user's mask takes away: who may write the base, guards it too.
    if (file.isOpen()) {
        // Only the administrator may give a file to somebody else.
        file.giveTo(system::ThisUser() == 0 ? base.owner : system::sameOwner, base.group);
        file.setRights(base.rights & 0666);
    }
    return file;
}

/// The guard file, made with the rights of the base when it is not there.
OpenFile openFile(const QFileInfo& base, const QString& path) {
    OpenFile file(path, OpenFile::How::Write);
    const auto hasFailedBy = [&](Failure failure) {
        return !file.isOpen() && system::FailureOf(file.error()) == failure;
    };
    if (const auto state = system::StateOf(base.filePath()); state && hasFailedBy(Failure::NoFile)) {
        file = makeFile(*state, path);
        if (hasFailedBy(Failure::FileExists))
            file = OpenFile(path, OpenFile::How::Write);
    }
    if (!file.isOpen())
        refuse(u"O arquivo %1, que guarda a base, não pode ser gravado (%2)"_s.arg(path, why(file)));
    if (const std::optional<FileState> kind = file.state(); !kind || !kind->plain)
        refuse(u"%1, que guarda a base, não é um arquivo comum"_s.arg(path));
    return file;
}

void write(OpenFile& file, const QByteArray& content, const QString& path) {
    if (!file.replaceContent(content))
        refuse(u"O arquivo %1, que guarda a base, não pode ser gravado (%2)"_s.arg(path, why(file)));
}

} // namespace

BaseGuard::BaseGuard(const QString& database, const QString& lockFolder) {
    const QFileInfo base = placeOf(database);
    if (!system::ThisSystem().locksAreFiles || !base.exists() || !base.isWritable())
        return;
    const Place own{QSysInfo::machineHostName().toUtf8(), QFile::encodeName(lockFolder), identityOf(lockFolder)};
    if (own.identity.isEmpty())
        refuse(u"A pasta de travas %1 não existe e não pode ser criada"_s.arg(lockFolder));
    const QString path = fileOf(database);
    base_ = base.filePath();
    number_ = numberOf(base_);
    file_ = openFile(base, path);
    for (const QDeadlineTimer wait(patience);; QThread::msleep(pauseMilliseconds)) {
        if (lock(file_, OpenFile::Lock::Exclusive)) {
            write(file_, own.content(), path);
            lock(file_, OpenFile::Lock::Shared); // the same lock, made weaker: nobody can come between
            return;
        }
        if (lock(file_, OpenFile::Lock::Shared)) {
            const Place inForce = placeIn(file_);
            if (inForce.identity == own.identity)
                return;
            lock(file_, OpenFile::Lock::None);
            if (wait.hasExpired())
                refuse(u"A base %1 está aberta por outro computador ou por outra instalação (computador %2, pasta "
                       "de travas %3); abri-la também daqui a destruiria"_s.arg(
                           base.filePath(), QString::fromUtf8(inForce.machine), QFile::decodeName(inForce.folder)));
        } else if (wait.hasExpired()) {
            refuse(u"A base %1 está sendo aberta por outro programa que não termina"_s.arg(base.filePath()));
        }
    }
}

void BaseGuard::requireBase() const {
    if (number_ != 0 && numberOf(base_) != number_)
        refuse(u"A base %1 foi removida ou trocada enquanto estava aberta; nada mais foi gravado"_s.arg(base_));
}

std::optional<PlaceInForce> PlaceInForceOf(const QString& database) {
    if (!system::ThisSystem().locksAreFiles)
        return std::nullopt;
    OpenFile file(BaseGuard::fileOf(database), OpenFile::How::Read);
    if (!file.isOpen() || !file.isLockedByOthers())
        return std::nullopt;
    const Place place = placeIn(file);
    return PlaceInForce{QString::fromUtf8(place.machine), QFile::decodeName(place.folder),
                        place.identity == identityOf(LockFolderOf(database))};
}

} // namespace vorta::firebird
