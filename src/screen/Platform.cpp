#include "screen/Platform.h"

#include "base/Literals.h"
#include "base/Moment.h"
#include "base/RuntimeError.h"
#include "base/Windows1252.h"

#include <QFile>
#include <QFileInfo>

namespace vorta::screen {

namespace {

/// No file of a few lines is longer; reading one that is could take the machine's memory.
constexpr qint64 mostBytes = 1 << 20;

} // namespace
std::optional<Answer> EscapeAnswer(Buttons buttons) {
    switch (buttons) {
    case Buttons::OK:
        return Answer::OK;
    case Buttons::YesNoCancel:
        return Answer::No; // "Cancela" gives up the operation, "Não" goes on with it
    case Buttons::YesNo:
        break;
    }
    return {};
}

void Platform::prepare(Screen&) {}

void Platform::dropPrepared() {}

void Platform::progress(qint64, qint64) {}

void Platform::putOnClipboard(const QString&) {}

QString Platform::askForFile(const QString&) {
    return {};
}

void Platform::writePdf(const QString&, const QString& path) {
    throw RuntimeError(errorNumber::PathRefused, u"%1 não pode ser gravado: não há onde desenhar a página"_s.arg(path));
}

QString Platform::dataFolder() const {
    return {};
}

void Platform::soon(const std::function<void()>& work) {
    work();
}

QDateTime Platform::now() const {
    const QDateTime here = QDateTime::currentDateTime();
    return Moment(here.date(), here.time());
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
    if (!info.exists())
        throw RuntimeError(errorNumber::FileNotFound, u"Arquivo não encontrado: %1"_s.arg(path));
    // Reading a pipe or a device may never end.
    if (!info.isFile() || info.size() > mostBytes)
        throw RuntimeError(errorNumber::FileNotFound, u"%1 não é um arquivo comum de texto"_s.arg(path));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(errorNumber::FileNotFound,
                           u"O arquivo %1 não pode ser lido: %2"_s.arg(path, file.errorString()));
    QStringList lines;
    while (lines.size() < most && !file.atEnd()) {
        QByteArray line = file.readLine();
        if (lines.isEmpty() && line.startsWith("\xEF\xBB\xBF"))
            line.remove(0, 3);
        while (line.endsWith('\n') || line.endsWith('\r'))
            line.chop(1);
        lines += DecodedText(line);
    }
    return lines;
}

void Platform::removeFile(const QString& path) {
    QFile::remove(localPath(path));
}

} // namespace vorta::screen
