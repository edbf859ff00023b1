// Game: the tree is changed beyond the current node.

#include <algorithm>

#include "chess/moves/legal_moves.h"
#include "game/game.h"

namespace velmora {

namespace {

/// "$0" to "$255", the glyphs of the PGN standard (10).
bool is_glyph(std::string_view glyph) {
    const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
    return glyph.size() >= 2 && glyph.size() <= 4 && glyph.front() == '$' &&
           std::all_of(glyph.begin() + 1, glyph.end(), is_digit);
}

}  // namespace

std::string Game::go_to(std::int32_t id) {
    replay(line_to(id));
    return fen();
}

// A result may be moved, and the game would then stand at another position than its node: it leaves a result
// first, wherever the tree is changed.

bool Game::promote(std::int32_t id) {
    leave_end_game();
    return m_tree.has_node(id) && m_editor.promote(m_tree, id);
}

bool Game::make_main_line(std::int32_t id) {
    leave_end_game();
    return m_tree.has_node(id) && m_editor.make_main_line(m_tree, id);
}

bool Game::delete_from(std::int32_t id) {
    return m_tree.has_node(id) && m_tree.node(id).type == ElementType::move && remove(id);
}

bool Game::delete_variation(std::int32_t id) {
    const auto head = m_tree.has_node(id) ? m_tree.variation_of(id) : 0;
    return head != 0 && remove(head);
}

bool Game::remove(std::int32_t id) {
    leave_end_game();
    const auto stood = m_current;
    if (m_tree.is_within(stood, id)) go_to(m_tree.node(id).pid);
    return m_editor.remove(m_tree, id, stood);
}

bool Game::undo_edit() {
    if (!can_undo_edit()) return false;
    leave_end_game();
    if (const auto stood = m_editor.undo(m_tree)) go_to(*stood);
    return true;
}

bool Game::set_comment(std::int32_t id, std::string_view text) {
    if (!m_tree.has_node(id)) return false;
    auto& node = m_tree.node(id);
    if (node.type == ElementType::end_game || node.comment == text) return false;
    node.comment = text;
    return true;
}

bool Game::set_symbol(std::int32_t id, std::string_view glyph) {
    if (!m_tree.has_node(id) || !(glyph.empty() || is_glyph(glyph))) return false;
    auto& node = m_tree.node(id);
    if (node.type != ElementType::move || node.nag == glyph) return false;
    node.nag = glyph;
    return true;
}

std::int32_t Game::add_line(std::span<const Move> moves) {
    const auto stood = m_current;
    const auto first = moves.empty() ? std::nullopt : find_legal(*this, moves.front());
    if (!first) return stood;
    leave_end_game();
    const auto start = m_current;
    std::size_t played = 0;
    for (const Move& move : moves) {
        if (!find_legal(*this, move)) break;
        add_move(move);
        ++played;
    }
    const auto reached = m_current;
    while (played-- > 0) undo_move();
    m_current = start;
    return reached;
}

}  // namespace velmora
