#pragma once

#include <QString>

namespace vorta::test {

/// A small file system over a folder, gone with the object. What stood in the folder stands in it as well.
class SmallDisk {
  public:
    SmallDisk(const QString& folder, const char* options);
    ~SmallDisk();
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;
    bool mounted() const { return mounted_; }

    /// Takes all of the room that is left.
    void fill() const;
    void empty() const;

  private:
    QString folder_;
    bool mounted_ = false;
};

#define NEED_MOUNTED(disk)                                                                                             \
    if (!(disk).mounted())                                                                                             \
    GTEST_SKIP() << "only root can mount a small disk"

} // namespace vorta::test
