#pragma once

#include <cstdint>

namespace velmora {

/// A colour. The numbers travel: 1 is White and 0 is Black wherever a side is written as an integer.
enum class Side : std::int32_t { black = 0, white = 1 };

constexpr Side opposite(Side side) { return side == Side::white ? Side::black : Side::white; }

/// A pair of like things, one of each colour.
///
/// Twin members would invite a second copy of every function that touches them; with a side as the index
/// one function serves both colours.
template <class T>
struct BySide {
    T white{};
    T black{};

    constexpr T& operator[](Side side) { return side == Side::white ? white : black; }
    constexpr const T& operator[](Side side) const { return side == Side::white ? white : black; }

    friend constexpr bool operator==(const BySide&, const BySide&) = default;
};

}  // namespace velmora
