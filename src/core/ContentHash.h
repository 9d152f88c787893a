#pragma once

#include <cstdint>
#include <cstring>
#include <type_traits>

/// A number of 64 bits that another content hardly ever has, for content of a few words up to
/// megabytes. The same within a process only.
class ContentHash
{
public:
    template <typename Number>
    void add(const Number& number)
    {
        static_assert(std::is_arithmetic_v<Number> || std::is_enum_v<Number> ||
                          std::is_pointer_v<Number>,
                      "of records, add each field: there may be gaps between them");
        // NOLINTNEXTLINE(bugprone-sizeof-expression): of a pointer, too
        static_assert(sizeof(Number) <= sizeof(std::uint64_t), "one word at a time");
        std::uint64_t word = 0;
        // NOLINTNEXTLINE(bugprone-sizeof-expression)
        std::memcpy(&word, &number, sizeof number);
        // Two lanes in turn, so that neither waits for its last product.
        const std::uint64_t mixed = (second ^ word) * factor;
        second = first;
        first = mixed ^ (mixed >> shift);
    }

    std::uint64_t value() const
    {
        const std::uint64_t mixed = (first ^ (second << 1)) * factor;
        return mixed ^ (mixed >> shift);
    }

private:
    static constexpr std::uint64_t factor = 0x9e3779b97f4a7c15u; // odd, its bits well mixed
    static constexpr int shift = 29;

    std::uint64_t first = 1;
    std::uint64_t second = 2;
};
