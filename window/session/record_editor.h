#pragma once

#include <cstdint>
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
    /// Adds moves from the position shown, as a variation where others follow, and stays there. Gives the
    /// node that they lead to.
    std::int32_t add_line(std::span<const Move> moves);

private:
    GameSession& m_session;
};

}  // namespace velmora
