#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <vector>

namespace vorta {

/// Bytes kept one stretch behind the other in blocks that never move: a store that grows needs no second copy of
/// itself, and can be given back from its beginning on.
class ByteBlocks {
  public:
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t size = 0; ///< bytes in use
        std::size_t capacity = 0;

        const char* begin() const { return bytes.get(); }
        const char* end() const { return bytes.get() + size; }
    };

    /// Room for a stretch of so many bytes, whole within one block.
    char* add(std::size_t size) {
        if (isEmpty() || blocks_.back().size + size > blocks_.back().capacity)
            grow(size);
        Block& last = blocks_.back();
        char* const place = last.bytes.get() + last.size;
        last.size += size;
        return place;
    }
    bool isEmpty() const { return first_ == blocks_.size(); }
    const Block& front() const { return blocks_[first_]; }
    /// Gives the first block back.
    void dropFront() {
        Block& dropped = blocks_[first_++];
        capacity_ -= dropped.capacity;
        dropped = {};
    }
    void clear() {
        blocks_.clear();
        first_ = 0;
        capacity_ = 0;
    }
    /// Bytes that the store occupies.
    std::size_t capacity() const { return capacity_; }

  private:
    /// Small stores, by far the most, take no more than they need.
    static constexpr std::size_t smallest = 1024;
    static constexpr std::size_t largest = 256UL * 1024;

    void grow(std::size_t size) {
        const std::size_t next = isEmpty() ? smallest : std::min(largest, blocks_.back().capacity * 2);
        const std::size_t capacity = std::max(size, next);
        blocks_.push_back({std::make_unique_for_overwrite<char[]>(capacity), 0, capacity});
        capacity_ += capacity;
    }

    std::vector<Block> blocks_;
    std::size_t first_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace vorta
