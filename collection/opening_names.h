#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "openings/eco_table.h"

namespace velmora {

/// The table of named positions for whoever asks of every position of many games.
///
/// Nearly all of these have no name; a set of short hashes answers them by one look at a few kilobytes, ahead
/// of the search that Eco does for single questions.
class OpeningNames {
public:
    OpeningNames();

    /// The row of a position's Polyglot key; null for a position without a name.
    const EcoRow* find(std::uint64_t key) const {
        return (m_present[key % present_bits / 64] >> (key % 64) & 1) != 0 ? search(key) : nullptr;
    }

private:
    static constexpr std::size_t present_bits = std::size_t{1} << 16;

    static const EcoRow* search(std::uint64_t key);

    std::array<std::uint64_t, present_bits / 64> m_present{};
};

/// "Sicilian, Najdorf": opening and, where it has one, variation.
std::string full_name(const EcoRow& row);

}  // namespace velmora
