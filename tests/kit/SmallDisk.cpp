#include "kit/SmallDisk.h"

#include "base/Literals.h"

#include <QDir>
#include <QMap>
#include <gtest/gtest.h>
#include <sys/mount.h>

namespace vorta::test {

SmallDisk::SmallDisk(const QString& folder, const char* options) : folder_(folder) {
    QMap<QString, QByteArray> files;
    for (const QFileInfo& entry : QDir(folder).entryInfoList(QDir::Files)) {
        QFile file(entry.filePath());
        if (file.open(QIODevice::ReadOnly))
            files[entry.filePath()] = file.readAll();
    }
    mounted_ = ::mount("tmpfs", folder.toUtf8().constData(), "tmpfs", 0, options) == 0;
    for (const auto& [path, content] : files.asKeyValueRange()) {
        QFile file(path);
        if (mounted_ && (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()))
            ADD_FAILURE() << "the small disk is too small for " << qPrintable(path);
    }
}

SmallDisk::~SmallDisk() {
    if (mounted_)
        ::umount2(folder_.toUtf8().constData(), MNT_DETACH);
}

void SmallDisk::fill() const {
    QFile file(folder_ + u"/enchimento"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered));
    for (qint64 part = 1 << 16; part > 0;)
        if (file.write(QByteArray(part, 'x')) != part)
            part /= 2;
}

void SmallDisk::empty() const {
    QFile::remove(folder_ + u"/enchimento"_s);
}

} // namespace vorta::test
