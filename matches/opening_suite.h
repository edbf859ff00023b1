#pragma once

#include <cstdint>
#include <mutex>
#include <vector>

#include "chess/moves/position.h"
#include "game/gui_book.h"
#include "matches/match_settings.h"

namespace velmora {

/// The openings of a match by their number: the same number has the same opening on every machine.
///
/// Random order is a shuffle by the seed, so that no opening comes again before all have been played. Any
/// thread may ask.
class OpeningSuite {
public:
    /// Throws std::runtime_error when a file is named that has no openings.
    explicit OpeningSuite(OpeningSettings settings);

    /// The position after opening number `index` from 0, with its moves.
    ChessPosition position(std::uint64_t index);

private:
    const OpeningSettings m_settings;
    std::vector<std::uint32_t> m_order;  // entries of the book from 0; empty for their own order
    std::mutex m_mutex;
    GuiBook m_book;  // guarded by m_mutex
};

}  // namespace velmora
