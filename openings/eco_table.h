#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace velmora {

/// A named line of the ECO classification, by the position that ends it.
struct EcoRow {
    std::string_view variation;  ///< may be empty
    std::string_view opening;
    std::string_view code;  ///< "A00" to "E99"
    std::uint64_t key = 0;  ///< the Polyglot key
};

/// All rows in the order of openings/eco_lines.txt, that is of their codes. The build makes them from that
/// file; the moves of the lines stay there.
///
/// The lines are kept as moves, which a person can check, and become keys in the build, by the program's
/// own rules.
std::span<const EcoRow> eco_rows();

/// Indexes into eco_rows() by ascending key. Of two rows with one key only the later is there.
std::span<const std::uint16_t> eco_rows_by_key();

}  // namespace velmora
