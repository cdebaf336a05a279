#include "system/ThisSystem.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <windows.h>

namespace vorta::system {

using namespace Qt::StringLiterals;

const System& ThisSystem() {
    static const System row{
        .home = u"c:/vorta"_s,
        .hasDrives = true,
        .rightsAreNumbers = false,
        .locksAreFiles = false,
        .fonts = {u"Segoe UI"_s, u"Tahoma"_s, u"Verdana"_s, u"Arial"_s, u"DejaVu Sans"_s, u"Liberation Sans"_s},
        .namesSqlServerDrivers = true,
        .clientLibrary = u"fbclient.dll"_s,
        .modulePrefix = {},
        .moduleSuffix = u".dll"_s,
        .programSuffix = u".exe"_s,
        .engineFolders = {u""_s},
        .programFolders = {u"/"_s},
    };
    return row;
}

/// Where the engine's own installation says it is; otherwise the system's loader looks.
QStringList InstalledClients() {
    const QString& file = ThisSystem().clientLibrary;
    const QSettings instances(u"HKEY_LOCAL_MACHINE\\SOFTWARE\\Firebird Project\\Firebird Server\\Instances"_s,
                              QSettings::Registry64Format);
    const QString root = instances.value(u"DefaultInstance"_s).toString();
    return root.isEmpty() ? QStringList{file} : QStringList{QDir::cleanPath(root + u'/' + file), file};
}

QString FolderOfFunction(const void* function) {
    HMODULE module = nullptr;
    if (!::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              static_cast<LPCWSTR>(function), &module))
        return {};
    wchar_t path[MAX_PATH];
    const DWORD length = ::GetModuleFileNameW(module, path, MAX_PATH);
    return length == 0 || length == MAX_PATH ? QString() : QFileInfo(QString::fromWCharArray(path)).path();
}

} // namespace vorta::system
