#pragma once

#include <cstdint>
#include <iosfwd>

namespace velmora {

/// Reads lines of a FEN and expected counts, "FEN ;D1 20 ;D2 400", and reports each count that differs.
///
/// Counts above `limit` nodes are left out. Empty lines and lines that begin with '#' are skipped. Returns
/// whether all lines could be read, all counts agreed, and there was at least one.
///
/// That form of line is the usual one of collections of perft positions. A file without a count is no
/// success: an empty or wrong file would else pass for a checked one.
bool check_epd(std::istream& in, std::ostream& out, std::uint64_t limit);

}  // namespace velmora
