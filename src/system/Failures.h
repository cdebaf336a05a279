#pragma once

/// What the numbers of the system's failures mean, as far as somebody is told in words or acts on it.
namespace vorta::system {

enum class Failure {
    Other,
    NoFile,
    FileExists,
    NoRight,
    ReadOnlyDisk,
    FullDisk,
    UsedUpQuota,
    DiskError,
    TooManyFiles,
};

/// Of the number that `OpenFile::error` gives, or that the engine hands on.
Failure FailureOf(int number);

} // namespace vorta::system
