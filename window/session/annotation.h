#pragma once

#include <string>
#include <string_view>

#include "chess/board/side.h"

namespace velmora {

/// Builds the comment of an engine's next move from one line of its search output.
///
/// A line with a score replaces `annotation`, a line without one appends to it; where it grows too long for a
/// comment, the evaluation stays and the oldest of the rest goes. Scores are written from
/// White's point of view, so Black's are negated.
/// @param line  the engine's line without its word "info"
///
/// The commands in brackets are those of PGN readers ("%eval" in pawns, "%emt" the time as h:m:s), so that
/// other programs can show them; "%acn", "%nps" and "%depth" hold nodes, their speed and the depth.
void annotate(std::string& annotation, std::string_view line, Side side);

}  // namespace velmora
