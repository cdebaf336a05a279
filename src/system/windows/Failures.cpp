#include "system/Failures.h"

#include <windows.h>

namespace vorta::system {

namespace {

constexpr int diskQuotaExceeded = 1295; // which not every set of headers names

} // namespace

Failure FailureOf(int number) {
    switch (number) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return Failure::NoFile;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return Failure::FileExists;
    case ERROR_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
        return Failure::NoRight;
    case ERROR_WRITE_PROTECT:
        return Failure::ReadOnlyDisk;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return Failure::FullDisk;
    case diskQuotaExceeded:
        return Failure::UsedUpQuota;
    case ERROR_CRC:
    case ERROR_IO_DEVICE:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
        return Failure::DiskError;
    case ERROR_TOO_MANY_OPEN_FILES:
        return Failure::TooManyFiles;
    default:
        return Failure::Other;
    }
}

} // namespace vorta::system
