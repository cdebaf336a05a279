#include "system/ThisSystem.h"

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace vorta::system {

using namespace Qt::StringLiterals;

const System& ThisSystem() {
    static const System row{
        .home = u"/opt/vorta"_s,
        .hasDrives = false,
        .rightsAreNumbers = true,
        .locksAreFiles = true,
        .fonts = {},
        .namesSqlServerDrivers = false,
        .clientLibrary = u"libfbclient.so.2"_s,
        .modulePrefix = u"lib"_s,
        .moduleSuffix = u".so"_s,
        .programSuffix = {},
        // A distribution's layout, and that of the engine's own installation.
        .engineFolders = {u"/firebird/%1"_s, u"/.."_s},
        .programFolders = {u"/../firebird/%1/bin/"_s, u"/../bin/"_s},
    };
    return row;
}

/// The system's loader knows where.
QStringList InstalledClients() {
    return {ThisSystem().clientLibrary};
}

QString FolderOfFunction(const void* function) {
    Dl_info file{};
    if (dladdr(function, &file) == 0)
        return {};
    return QFileInfo(QFileInfo(QFile::decodeName(file.dli_fname)).canonicalFilePath()).path();
}

} // namespace vorta::system
