#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "channel/sender.h"

namespace velmora {

/// What a line of an engine asks of the referee. A best move, a resignation and a draw offer make it act;
/// search output is passed on, and all else is there for its log.
///
/// These are UCI's words, "resign" and "offer draw": the driver of an engine that speaks another protocol
/// puts what it says in them, so that the referee knows one language.
enum class EngineWord { best_move, resign, offer_draw, info, other };

/// The meaning of a line's first word.
EngineWord engine_word(std::string_view text);

constexpr bool is_decisive(EngineWord word) {
    return word == EngineWord::best_move || word == EngineWord::resign || word == EngineWord::offer_draw;
}

/// A line of an engine on its way to the referee: "1 9876543210 bestmove e2e4 ponder e7e5 TS=123 stopped".
///
/// The text is borrowed: from the driver that passes it on, or from the line that was read.
///
/// The instance is needed because lines wait in a queue: when an engine is replaced, best moves of the old
/// one may still stand there, and would be played for the new one. The arrival is noted by the thread that
/// reads the engine, so that the time a line waits for the referee is not taken off the engine's clock.
struct EngineLine {
    Seat seat = Seat::first;
    std::uint64_t instance_id = 0;  ///< tells this engine from one that sat there before
    std::string_view text = {};     ///< as the engine has said it, or as its driver puts it in UCI's words
    std::optional<std::uint32_t> arrival =
        std::nullopt;      ///< of a best move, in wall clock milliseconds (they wrap)
    bool stopped = false;  ///< the best move answers a search that was stopped

    EngineWord word() const { return engine_word(text); }

    /// What stands behind the first word, its leading blank included.
    std::string_view rest() const;

    /// The move of a best move; empty when the engine has named none.
    std::string_view move() const;

    bool operator==(const EngineLine&) const = default;
};

/// The text of the line on the queue and in the logs.
std::string encode(const EngineLine& line);

/// Reads a line; nothing when it comes from no seat.
///
/// The text points into `line`, which must outlive the result.
std::optional<EngineLine> decode_engine_line(std::string_view line);

}  // namespace velmora
