#pragma once

#if defined(__SSE2__)

#include <emmintrin.h>

#include <bit>
#include <cstddef>

#include "text/units.h"

// Blocks of 16 bytes or 8 units, from and to places of any alignment.

namespace cuewright {

using Block = __m128i;

inline Block LoadBlock(const void* at) { return _mm_loadu_si128(static_cast<const Block*>(at)); }
inline void StoreBlock(void* at, Block block) { _mm_storeu_si128(static_cast<Block*>(at), block); }
/// Stores the first eight bytes alone.
inline void StoreHalfBlock(void* at, Block block) { _mm_storel_epi64(static_cast<Block*>(at), block); }

inline Block AllBytes(int byte) { return _mm_set1_epi8(LowByte(byte)); }
inline Block AllUnits(int unit) { return _mm_set1_epi16(static_cast<short>(unit)); }
inline Block NoBits() { return _mm_setzero_si128(); }

/// The highest bit of each byte, 16 bits in all; what a comparison of units gives has two equal bits a unit.
inline unsigned BitsOf(Block block) { return _mm_movemask_epi8(block); }
/// Index of the lowest bit that is set.
inline std::size_t FirstBit(unsigned bits) { return std::countr_zero(bits); }
/// The bits below the lowest one that is set.
inline unsigned BitsBelowFirst(unsigned bits) { return (bits & (0u - bits)) - 1; }

/// Sixteen ASCII bytes as units.
inline void WidenBlock(Block bytes, char16_t* out) {
  StoreBlock(out, _mm_unpacklo_epi8(bytes, NoBits()));
  StoreBlock(out + 8, _mm_unpackhi_epi8(bytes, NoBits()));
}
/// All bits of each unit that is ASCII, none of any other.
inline Block AsciiUnits(Block units) { return _mm_cmpeq_epi16(_mm_and_si128(units, AllUnits(0xFF80)), NoBits()); }
/// Eight ASCII units as bytes.
inline void NarrowBlock(Block units, char* out) { StoreHalfBlock(out, _mm_packus_epi16(units, units)); }

}  // namespace cuewright

#endif
