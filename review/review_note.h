#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/time/level.h"

namespace velmora {

/// What a record keeps of its last review, beside evaluations and symbols: "[%review 3-80 fixed_depth 18
/// Stockfish 15.1]" in the comment ahead of the first move, behind the summary in words.
///
/// Evaluations alone don't tell whose they are. This is what lets a second run go on where the first was
/// stopped, in another program start, too, and replace the summary instead of adding one.
struct ReviewNote {
    std::size_t first_ply = 0;  ///< of the positions that the engine has judged without a gap
    std::size_t last_ply = 0;
    Level level;         ///< what it was given for each: a depth, nodes, or a time
    std::string engine;  ///< its name, without signs that end an annotation

    /// The annotation.
    std::string text() const;

    /// Whether what was judged then is worth as much as what would be judged by this engine with that effort.
    bool serves(const std::string& engine_name, const Level& effort) const;
};

/// A name as it can stand in the annotation.
std::string review_name(std::string_view engine);

/// How the annotation begins.
inline constexpr std::string_view review_note_beginning = "[%review ";

/// The note in the comment ahead of the first move; nothing without one that can be read.
std::optional<ReviewNote> find_review_note(std::string_view comment);

/// A comment whose evaluation and depth are these; they stand first, all else of it stays. A comment that
/// would become too long for a file loses the depth, then stays as it was.
std::string with_evaluation(std::string_view comment, std::string_view evaluation, std::int32_t depth);

/// How much an engine is given for a position, in words: "0.5 s a move", "depth 18", "200000 nodes".
std::string effort_text(const Level& level);

}  // namespace velmora
