#include "system/Failures.h"

#include <cerrno>

namespace vorta::system {

Failure FailureOf(int number) {
    switch (number) {
    case ENOENT:
        return Failure::NoFile;
    case EEXIST:
        return Failure::FileExists;
    case EACCES:
    case EPERM:
        return Failure::NoRight;
    case EROFS:
        return Failure::ReadOnlyDisk;
    case ENOSPC:
        return Failure::FullDisk;
    case EDQUOT:
        return Failure::UsedUpQuota;
    case EIO:
        return Failure::DiskError;
    case EMFILE:
        return Failure::TooManyFiles;
    default:
        return Failure::Other;
    }
}

} // namespace vorta::system
