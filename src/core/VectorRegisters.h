#pragma once

#if defined(__GNUC__) && (defined(__x86_64__) || defined(__i386__))
#define ZK_HAS_WIDE_REGISTERS 1
#include <immintrin.h>
#endif

/// The vector registers of the processor. Code that is made for wide ones, of the toolkit's
/// painting and text for instance, may leave their upper halves in use. On many x86 processors each
/// call of `sin` or `exp` then takes ten times as long and more, until somebody clears them.
class VectorRegisters
{
public:
    /// To be called before much is worked out. Takes a nanosecond; no value is lost, as nobody may
    /// count on upper halves across a call.
    static void clearUpperHalves()
    {
#ifdef ZK_HAS_WIDE_REGISTERS
        static const bool isWide = __builtin_cpu_supports("avx");
        if (isWide) {
            clear();
        }
#endif
    }

private:
#ifdef ZK_HAS_WIDE_REGISTERS
    __attribute__((target("avx"))) static void clear()
    {
        _mm256_zeroupper();
    }
#endif
};
