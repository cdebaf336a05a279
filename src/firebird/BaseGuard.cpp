#include "firebird/BaseGuard.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"
#include "firebird/EngineReasons.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QSysInfo>
#include <QThread>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

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

#ifdef Q_OS_LINUX

namespace {

/// How long somebody with another place may still take to go: a search in the postal codes, a check.
constexpr std::chrono::seconds patience{4};
constexpr unsigned long pauseMilliseconds = 20;
constexpr qsizetype mostBytes = 4096;

[[noreturn]] void refuse(const QString& words) {
    throw RuntimeError(errorNumber::ConnectionFailed, words);
}

QByteArray firstLineOf(const char* path) {
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::ReadOnly) ? file.readLine(128).trimmed() : QByteArray();
}

/// What makes two lock folders the same: the same folder, mapped by the same kernel, and process numbers that mean the
/// same, since the engine asks by their number whether others still live.
QByteArray identityOf(const QString& lockFolder) {
    struct stat folder {};
    struct stat numbers {};
    if (::stat(QFile::encodeName(lockFolder).constData(), &folder) != 0)
        return {};
    (void)::stat("/proc/self/ns/pid", &numbers);
    return firstLineOf("/proc/sys/kernel/random/boot_id") + ' ' + QByteArray::number(quint64(numbers.st_ino)) + ' ' +
           QByteArray::number(quint64(folder.st_dev)) + ':' + QByteArray::number(quint64(folder.st_ino));
}

/// The file's own number, 0 for none.
quint64 numberOf(const QByteArray& path) {
    struct stat file {};
    return ::stat(path.constData(), &file) == 0 ? quint64(file.st_ino) : 0;
}

/// The content of a guard file: the machine and the folder in words, and what is compared.
struct Place {
    QByteArray machine;
    QByteArray folder;
    QByteArray identity;

    QByteArray content() const { return machine + '\n' + folder + '\n' + identity + '\n'; }
};

Place placeIn(int file) {
    QByteArray content(mostBytes, '\0');
    const ssize_t length = ::pread(file, content.data(), static_cast<std::size_t>(content.size()), 0);
    content.truncate(std::max<ssize_t>(length, 0));
    const QByteArrayList lines = content.split('\n');
    return {lines.value(0), lines.value(1), lines.value(2)};
}

/// The system's last failure in words.
QString why() {
    const int number = errno;
    const QString words = SystemReason(number);
    return words.isEmpty() ? u"erro %1 do sistema"_s.arg(number) : words;
}

/// Without a word when the place is free in that mode.
bool lock(int file, short mode) {
    struct flock whole {};
    whole.l_type = mode;
    whole.l_whence = SEEK_SET;
    while (::fcntl(file, F_OFD_SETLK, &whole) != 0) {
        if (errno == EACCES || errno == EAGAIN)
            return false;
        if (errno != EINTR)
            refuse(u"O sistema de arquivos da base não oferece travas (%1); a base não pode ser aberta com segurança"_s
                       .arg(why()));
    }
    return true;
}

/// The guard file, made with the rights of the base when it is not there.
int openFile(const QFileInfo& base, const QString& path) {
    const QByteArray name = QFile::encodeName(path);
    constexpr int flags = O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;
    struct stat rights {};
    int file = ::open(name.constData(), flags);
    if (file < 0 && errno == ENOENT && ::stat(QFile::encodeName(base.filePath()).constData(), &rights) == 0) {
        file = ::open(name.constData(), flags | O_CREAT | O_EXCL, 0600);
        // Whatever the user's mask takes away: who may write the base, guards it too.
        if (file >= 0) {
            // Only the administrator may give a file to somebody else.
            const uid_t owner = ::geteuid() == 0 ? rights.st_uid : static_cast<uid_t>(-1);
            [[maybe_unused]] const int given = ::fchown(file, owner, rights.st_gid);
            (void)::fchmod(file, rights.st_mode & 0666);
        } else if (errno == EEXIST)
            file = ::open(name.constData(), flags);
    }
    if (file < 0)
        refuse(u"O arquivo %1, que guarda a base, não pode ser gravado (%2)"_s.arg(path, why()));
    struct stat kind {};
    if (::fstat(file, &kind) != 0 || !S_ISREG(kind.st_mode)) {
        ::close(file);
        refuse(u"%1, que guarda a base, não é um arquivo comum"_s.arg(path));
    }
    return file;
}

/// Over what stands there, so that a full disk has the room already.
void write(int file, const QByteArray& content, const QString& path) {
    const auto length = static_cast<std::size_t>(content.size());
    if (::pwrite(file, content.constData(), length, 0) != content.size() || ::ftruncate(file, content.size()) != 0)
        refuse(u"O arquivo %1, que guarda a base, não pode ser gravado (%2)"_s.arg(path, why()));
}

} // namespace

BaseGuard::BaseGuard(const QString& database, const QString& lockFolder) {
    const QFileInfo base = placeOf(database);
    if (!base.exists() || !base.isWritable())
        return;
    const Place own{QSysInfo::machineHostName().toUtf8(), QFile::encodeName(lockFolder), identityOf(lockFolder)};
    if (own.identity.isEmpty())
        refuse(u"A pasta de travas %1 não existe e não pode ser criada"_s.arg(lockFolder));
    const QString path = fileOf(database);
    base_ = QFile::encodeName(base.filePath());
    number_ = numberOf(base_);
    file_ = openFile(base, path);
    try {
        for (const QDeadlineTimer wait(patience);; QThread::msleep(pauseMilliseconds)) {
            if (lock(file_, F_WRLCK)) {
                write(file_, own.content(), path);
                lock(file_, F_RDLCK); // the same lock, made weaker: nobody can come between
                return;
            }
            if (lock(file_, F_RDLCK)) {
                const Place inForce = placeIn(file_);
                if (inForce.identity == own.identity)
                    return;
                lock(file_, F_UNLCK);
                if (wait.hasExpired())
                    refuse(u"A base %1 está aberta por outro computador ou por outra instalação (computador %2, pasta "
                           "de travas %3); abri-la também daqui a destruiria"_s.arg(
                               base.filePath(), QString::fromUtf8(inForce.machine), QFile::decodeName(inForce.folder)));
            } else if (wait.hasExpired()) {
                refuse(u"A base %1 está sendo aberta por outro programa que não termina"_s.arg(base.filePath()));
            }
        }
    } catch (const RuntimeError&) {
        release();
        throw;
    }
}

void BaseGuard::requireBase() const {
    if (number_ != 0 && numberOf(base_) != number_)
        refuse(u"A base %1 foi removida ou trocada enquanto estava aberta; nada mais foi gravado"_s.arg(
            QFile::decodeName(base_)));
}

std::optional<PlaceInForce> PlaceInForceOf(const QString& database) {
    const int file = ::open(QFile::encodeName(BaseGuard::fileOf(database)).constData(),
                            O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0)
        return std::nullopt;
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    std::optional<PlaceInForce> found;
    if (::fcntl(file, F_OFD_GETLK, &whole) == 0 && whole.l_type != F_UNLCK) {
        const Place place = placeIn(file);
        found = PlaceInForce{QString::fromUtf8(place.machine), QFile::decodeName(place.folder),
                             place.identity == identityOf(LockFolderOf(database))};
    }
    ::close(file);
    return found;
}

void BaseGuard::release() {
    if (file_ != none)
        ::close(file_);
    file_ = none;
}

#else

// Elsewhere the engine keeps its locks in one place of the machine, and the system refuses a file to a second machine.
BaseGuard::BaseGuard(const QString&, const QString&) {}
void BaseGuard::requireBase() const {}
std::optional<PlaceInForce> PlaceInForceOf(const QString&) {
    return std::nullopt;
}
void BaseGuard::release() {}

#endif

} // namespace vorta::firebird
