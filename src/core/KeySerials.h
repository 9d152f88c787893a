#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

struct PointInfo;

/// The serials of the keys of a spline: a table from address to serial, which never reads through
/// an address. Open addressing with linear probing; it takes less than half a key's own memory.
class KeySerials
{
public:
    /// The serial of the key, 0 when it is not in the table.
    std::uint64_t of(const PointInfo* key) const
    {
        if (table.empty()) {
            return 0;
        }
        // The empty slot that ends the search has serial 0.
        return table[slotOf(key)].serial;
    }

    /// Takes in a key that is not in the table. Neither is null or 0.
    void insert(const PointInfo* key, std::uint64_t serial);
    /// Does nothing with a key that is not in the table.
    void erase(const PointInfo* key);
    void clear();
    /// Makes room for that many keys in all.
    void reserve(std::size_t keys);
    void swap(KeySerials& other);

private:
    struct Slot
    {
        const PointInfo* key = nullptr; ///< null marks an empty slot
        std::uint64_t serial = 0;
    };

    /// Where the search for the key begins. Neighbours in memory stay neighbours, which is quick;
    /// the higher bits keep blocks of a great power of two apart.
    std::size_t homeOf(const PointInfo* key) const
    {
        const auto address = reinterpret_cast<std::uintptr_t>(key);
        return static_cast<std::size_t>((address >> 4) ^ (address >> 12)) & (table.size() - 1);
    }

    std::size_t next(std::size_t slot) const { return (slot + 1) & (table.size() - 1); }

    /// The slot of the key, or the empty one where it would stand.
    std::size_t slotOf(const PointInfo* key) const
    {
        std::size_t slot = homeOf(key);
        while (table[slot].key != nullptr && table[slot].key != key) {
            slot = next(slot);
        }
        return slot;
    }

    void rehash(std::size_t size);

    /// A power of two of slots, an eighth of them empty at least; or none at all.
    std::vector<Slot> table;
    std::size_t count = 0;
};
