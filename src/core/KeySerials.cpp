#include "core/KeySerials.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t fewestSlots = 4;

/// Searches stay short while an eighth of the slots is empty.
bool hasRoom(std::size_t slots, std::size_t keys)
{
    return keys <= slots - slots / 8 && keys < slots;
}

} // namespace

void KeySerials::insert(const PointInfo* key, std::uint64_t serial)
{
    reserve(count + 1);
    slots[slotOf(key)] = {key, serial};
    ++count;
}

void KeySerials::erase(const PointInfo* key)
{
    if (of(key) == 0) {
        return;
    }
    std::size_t hole = slotOf(key);
    // Those behind move up, unless that would put them before the place where their search begins.
    for (std::size_t slot = next(hole); slots[slot].key != nullptr; slot = next(slot)) {
        const std::size_t home = homeOf(slots[slot].key);
        const bool staysBehindHome =
            hole <= slot ? home <= hole || home > slot : home <= hole && home > slot;
        if (staysBehindHome) {
            slots[hole] = slots[slot];
            hole = slot;
        }
    }
    slots[hole] = Slot();
    --count;
}

void KeySerials::clear()
{
    std::vector<Slot>().swap(slots);
    count = 0;
}

void KeySerials::reserve(std::size_t keys)
{
    if (hasRoom(slots.size(), keys)) {
        return;
    }
    std::size_t size = std::max(fewestSlots, slots.size());
    while (!hasRoom(size, keys)) {
        size *= 2;
    }
    rehash(size);
}

void KeySerials::swap(KeySerials& other)
{
    slots.swap(other.slots);
    std::swap(count, other.count);
}

void KeySerials::rehash(std::size_t size)
{
    std::vector<Slot> former(size);
    former.swap(slots);
    for (const Slot& slot : former) {
        if (slot.key != nullptr) {
            slots[slotOf(slot.key)] = slot;
        }
    }
}
