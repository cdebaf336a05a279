#include "screen/Platform.h"

#include "base/Literals.h"
#include "base/RuntimeError.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <array>

namespace vorta::screen {

namespace {

/// What the bytes 0x80 to 0x9F mean in Windows-1252; the other bytes are their own code points.
constexpr std::array<char16_t, 32> windows1252{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                               0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString decoded(const QByteArray& bytes) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8.decode(bytes);
    if (!utf8.hasError())
        return text;
    QString western;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        western += code >= 0x80 && code <= 0x9F ? QChar(windows1252[code - 0x80]) : QChar(code);
    }
    return western;
}

} // namespace

void Platform::prepare(Screen&) {}

void Platform::dropPrepared() {}

void Platform::progress(qint64, qint64) {}

QDateTime Platform::now() const {
    return QDateTime::currentDateTime();
}

QString Platform::localPath(const QString& path) {
    QString local = path;
    return local.replace(u'\\', u'/');
}

bool Platform::fileExists(const QString& path) const {
    return QFileInfo(localPath(path)).isFile();
}

QStringList Platform::readLines(const QString& path, int most) const {
    const QFileInfo info(localPath(path));
    if (path.isEmpty() || info.isDir())
        throw RuntimeError(errorNumber::BadFileName);
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(errorNumber::FileNotFound, u"Arquivo não encontrado: %1"_s.arg(path));
    QStringList lines;
    while (lines.size() < most && !file.atEnd()) {
        QByteArray line = file.readLine();
        if (lines.isEmpty() && line.startsWith("\xEF\xBB\xBF"))
            line.remove(0, 3);
        while (line.endsWith('\n') || line.endsWith('\r'))
            line.chop(1);
        lines += decoded(line);
    }
    return lines;
}

void Platform::removeFile(const QString& path) {
    QFile::remove(localPath(path));
}

} // namespace vorta::screen
