// The memory of the strings that fill a string array in order.
#include "string_arena.hpp"

#include <cstdlib>

namespace zorbal::data::detail {

namespace {

// The alignment of a string record, whose most aligned member is a pointer.
constexpr std::size_t alignment = alignof(void*);

constexpr std::size_t aligned(std::size_t bytes) noexcept
{
    return (bytes + alignment - 1) / alignment * alignment;
}

} // namespace

StringArena::~StringArena()
{
    while (last_) {
        Block* const previous = last_->previous;
        std::free(last_);
        last_ = previous;
    }
}

void* StringArena::allocate(std::size_t bytes) noexcept
{
    if (bytes > largest_block / 4)
        return nullptr;
    bytes = aligned(bytes);
    if (bytes > left_) {
        // Doubling keeps the blocks few for a large array and the last one's unused rest below half of
        // what the array holds, while a small array takes a small block.
        std::size_t const header = aligned(sizeof(Block));
        while (blockSize_ < header + bytes)
            blockSize_ *= 2;
        auto* const block = static_cast<Block*>(std::malloc(blockSize_));
        if (!block)
            return nullptr;
        block->previous = last_;
        last_ = block;
        next_ = reinterpret_cast<unsigned char*>(block) + header;
        left_ = blockSize_ - header;
        if (blockSize_ < largest_block)
            blockSize_ *= 2;
    }
    void* const room = next_;
    next_ += bytes;
    left_ -= bytes;
    return room;
}

} // namespace zorbal::data::detail
