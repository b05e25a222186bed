// Constants of IEEE double arithmetic that the kernels' safeguards use.
// They stand here until the machine-constant routines are linked into the
// library; the values are those routines' own bit patterns.
#pragma once

#include <bit>
#include <cstdint>

namespace zil::linalg {

// Machine precision: 2^-53 with its lowest bit set.
inline constexpr double kEps = std::bit_cast<double>(std::uint64_t{0x3CA0000000000001});
// Smallest positive normal number, which is also the safe range.
inline constexpr double kSafeMin = std::bit_cast<double>(std::uint64_t{0x0010000000000000});
// Its reciprocal, the largest number a safeguarded quotient may return.
inline constexpr double kFlMax = 1.0 / kSafeMin;

}  // namespace zil::linalg
