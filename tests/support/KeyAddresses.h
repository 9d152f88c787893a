#pragma once

// Replaces operator new and delete of the program that includes it, once: blocks of a key's size
// come from a pool of their own, and the address that was freed last is given out first. So a new
// key lies where a freed one lay at once, as happens in a release build sooner or later; and this
// under the address sanitizer as well, which otherwise keeps freed memory aside.

#include "core/PointInfo.h"

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <new>

#include <malloc.h>

class KeyAddresses
{
public:
    static void* take(std::size_t size)
    {
        void* block = size == sizeof(PointInfo) ? takeFromPool() : nullptr;
        block = block != nullptr ? block : std::malloc(size == 0 ? 1 : size);
        bytes += sizeOf(block);
        return block;
    }

    static void give(void* block) noexcept
    {
        bytes -= sizeOf(block);
        if (isOfPool(block)) {
            const Lock lock;
            auto* const place = static_cast<Block*>(block);
            place->next = freed;
            freed = place;
        } else {
            std::free(block);
        }
    }

    /// The memory that is in use, in bytes.
    static std::size_t usedBytes() { return bytes; }

    static bool isOfPool(const void* block)
    {
        return !std::less<const void*>()(block, pool.data()) &&
               std::less<const void*>()(block, pool.data() + pool.size());
    }

private:
    union Block {
        Block* next;
        alignas(std::max_align_t) std::array<std::byte, sizeof(PointInfo)> content;
    };

    struct Lock
    {
        Lock()
        {
            while (isHeld.test_and_set(std::memory_order_acquire)) {
            }
        }
        ~Lock() { isHeld.clear(std::memory_order_release); }
        Lock(const Lock&) = delete;
        Lock& operator=(const Lock&) = delete;
    };

    static std::size_t sizeOf(void* block) noexcept
    {
        return isOfPool(block) ? sizeof(PointInfo) : malloc_usable_size(block);
    }

    static void* takeFromPool()
    {
        const Lock lock;
        if (freed != nullptr) {
            Block* const block = freed;
            freed = block->next;
            return block;
        }
        return used < pool.size() ? &pool[used++] : nullptr;
    }

    static inline std::array<Block, 50000> pool;
    static inline Block* freed = nullptr;
    static inline std::size_t used = 0;
    static inline std::atomic<std::size_t> bytes{0};
    static inline std::atomic_flag isHeld = ATOMIC_FLAG_INIT;
};

void* operator new(std::size_t size)
{
    if (void* const block = KeyAddresses::take(size)) {
        return block;
    }
    throw std::bad_alloc();
}

void* operator new(std::size_t size, const std::nothrow_t& /*nothrow*/) noexcept
{
    return KeyAddresses::take(size);
}

void operator delete(void* block) noexcept
{
    KeyAddresses::give(block);
}

void operator delete(void* block, std::size_t /*size*/) noexcept
{
    KeyAddresses::give(block);
}

void operator delete(void* block, const std::nothrow_t& /*nothrow*/) noexcept
{
    KeyAddresses::give(block);
}
