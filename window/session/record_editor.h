#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "chess/board/move.h"
#include "window/session/game_session.h"

namespace velmora {

/// The person changes the tree of the record: order, extent, symbols.
///
/// A room of its own, which works on the session by edit() alone: the text of the comment box is stored, then
/// the record changes, then one notice is given. Ids are those of the record's tree; each operation gives
/// false, or does nothing, for one that it doesn't have or where there is nothing to do. See Game for what
/// each does.
class RecordEditor {
public:
    explicit RecordEditor(GameSession& session) : m_session(session) {}

    bool promote(std::int32_t id);
    bool make_main_line(std::int32_t id);
    /// The board comes to the move ahead of what goes, when it shows one of these positions.
    bool delete_from(std::int32_t id);
    bool delete_variation(std::int32_t id);
    bool undo();
    bool set_symbol(std::int32_t id, std::string_view glyph);
    /// Adds a line that begins behind a node, as a variation where other moves follow, and leaves the board
    /// as it is. Gives the node of the last move; nothing where there is no such place or no such line.
    std::optional<std::int32_t> add_line(std::int32_t node, std::span<const Move> moves);

private:
    GameSession& m_session;
};

}  // namespace velmora
