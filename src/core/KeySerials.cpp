#include "core/KeySerials.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t fewestSlots = 4;

/// Searches stay short while an eighth of the slots is empty.
bool hasRoom(std::size_t slotCount, std::size_t keys)
{
    return keys <= slotCount - slotCount / 8 && keys < slotCount;
}

} // namespace

void KeySerials::insert(const PointInfo* key, std::uint64_t serial)
{
    reserve(count + 1);
    table[slotOf(key)] = {key, serial};
    ++count;
}

void KeySerials::erase(const PointInfo* key)
{
    if (of(key) == 0) {
        return;
    }
    std::size_t hole = slotOf(key);
    // Those behind move up, unless that would put them before the place where their search begins.
    for (std::size_t slot = next(hole); table[slot].key != nullptr; slot = next(slot)) {
        const std::size_t home = homeOf(table[slot].key);
        const bool staysBehindHome =
            hole <= slot ? home <= hole || home > slot : home <= hole && home > slot;
        if (staysBehindHome) {
            table[hole] = table[slot];
            hole = slot;
        }
    }
    table[hole] = Slot();
    --count;
}

void KeySerials::clear()
{
    std::vector<Slot>().swap(table);
    count = 0;
}

void KeySerials::reserve(std::size_t keys)
{
    if (hasRoom(table.size(), keys)) {
        return;
    }
    std::size_t size = std::max(fewestSlots, table.size());
    while (!hasRoom(size, keys)) {
        size *= 2;
    }
    rehash(size);
}

void KeySerials::swap(KeySerials& other)
{
    table.swap(other.table);
    std::swap(count, other.count);
}

void KeySerials::rehash(std::size_t size)
{
    std::vector<Slot> former(size);
    former.swap(table);
    for (const Slot& slot : former) {
        if (slot.key != nullptr) {
            table[slotOf(slot.key)] = slot;
        }
    }
}
