#pragma once

#include <QTemporaryFile>

#include <array>
#include <memory>
#include <vector>

namespace vorta::audit {

/// Who has a key: the person and the key's hash.
struct KeyOfPerson {
    quint64 hash;
    qint64 person;
    auto operator<=>(const KeyOfPerson&) const = default;
};

/// Keys of any number of persons, kept in temporary files so that memory does not grow with them. They come back in
/// parts, the smaller hashes first; equal hashes are always of one part.
class Spill {
  public:
    static constexpr std::size_t parts = 64;

    void add(const KeyOfPerson& key);
    qint64 size() const { return size_; }
    /// One part in order, and its file gone. Raises 75, also for what `add` could not write.
    std::vector<KeyOfPerson> take(std::size_t part);

  private:
    static constexpr std::size_t keysAtOnce = 256;
    struct Part {
        std::vector<KeyOfPerson> waiting; ///< at most `keysAtOnce`
        std::unique_ptr<QTemporaryFile> file;
    };
    static void write(Part& part);

    std::array<Part, parts> parts_;
    qint64 size_ = 0;
};

} // namespace vorta::audit
