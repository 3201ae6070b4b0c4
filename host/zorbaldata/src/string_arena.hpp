// The memory of the strings that fill a string array in order: taken in blocks, not one by one.
#pragma once

#include <cstddef>
#include <memory>

namespace zorbal::data::detail {

/// Room handed out in order from blocks that grow geometrically, all freed with the arena. Only the
/// array that owns an arena takes room from it; its copies keep it alive, since they share its strings,
/// and take theirs from arenas of their own that keep this one alive in turn.
class StringArena {
public:
    /// Room for larger strings is had one by one: a block is no larger than this.
    static constexpr std::size_t largest_block = std::size_t{1} << 16;

    explicit StringArena(std::shared_ptr<StringArena const> kept = nullptr) noexcept : kept_(std::move(kept)) {}
    StringArena(StringArena const&) = delete;
    StringArena& operator=(StringArena const&) = delete;
    ~StringArena();

    /// bytes of room aligned as a pointer, or null when no block can be had or bytes is more than
    /// a quarter of the largest block.
    void* allocate(std::size_t bytes) noexcept;

private:
    // Each block begins with the address of the block before it.
    struct Block {
        Block* previous;
    };

    std::shared_ptr<StringArena const> kept_;
    Block* last_ = nullptr;
    unsigned char* next_ = nullptr;
    std::size_t left_ = 0;
    std::size_t blockSize_ = 256;
};

} // namespace zorbal::data::detail
