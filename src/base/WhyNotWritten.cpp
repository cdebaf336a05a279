#include "base/WhyNotWritten.h"

#include "base/Literals.h"

#include <QFileInfo>
#include <QStorageInfo>

namespace vorta {

QString WhyNotWritten(const QString& path) {
    const QFileInfo folder(QFileInfo(path).path());
    if (!folder.isDir())
        return u"a pasta %1 não existe"_s.arg(folder.filePath());
    if (!folder.isWritable())
        return u"falta o direito de gravar na pasta %1"_s.arg(folder.filePath());
    constexpr qint64 next = 4'000'000;
    if (const QStorageInfo disk(folder.filePath()); disk.bytesTotal() > 0 && disk.bytesAvailable() < next)
        return u"o disco está cheio"_s;
    return u"o sistema de arquivos recusou"_s;
}

} // namespace vorta
