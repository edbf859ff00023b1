// Game: the steps from node to node.

#include <algorithm>
#include <stdexcept>

#include "chess/moves/legal_moves.h"
#include "chess/notation/san_move.h"
#include "chess/notation/san_reader.h"
#include "game/game.h"

namespace velmora {

namespace {

/// Copying it is many times faster than reading its FEN, which counts when a file is walked.
const ChessPosition& standard_start() {
    static const ChessPosition start = [] {
        ChessPosition position;
        position.new_game();
        return position;
    }();
    return start;
}

}  // namespace

std::string Game::to_start() {
    stand_at_start();
    return fen();
}

void Game::stand_at_start() {
    m_current = 0;
    ChessPosition::operator=(standard_start());
    // A FEN that can't be read leaves the standard start.
    if (m_tags.fen() != GameTags::standard_fen) set_fen(m_tags.fen());
}

/// A result is a node without a move: it stands at the position of its parent.
void Game::leave_end_game() {
    const auto& node = m_tree.node(m_current);
    if (node.type == ElementType::end_game) m_current = node.pid;
}

std::string Game::back() {
    leave_end_game();
    if (m_current == 0) return {};
    const auto parent = m_tree.node(m_current).pid;
    if (last_move().empty()) {
        // The position was set meanwhile and has no history.
        replay(line_to(parent));
    } else {
        undo_move();
        m_current = parent;
    }
    return fen();
}

/// False at the end of the line.
bool Game::step_forward() {
    const auto child = m_tree.node(m_current).child_at(0);
    if (child < 1) return false;
    const auto& next = m_tree.node(child);
    if (next.type == ElementType::end_game) return false;
    step_to(child, legal_move(next.san));
    return true;
}

std::string Game::forward() {
    leave_end_game();
    return step_forward() ? fen() : std::string();
}

std::string Game::to_end() {
    leave_end_game();
    const auto start = m_current;
    while (step_forward()) {
    }
    return m_current != start ? fen() : std::string();
}

std::string Game::follow(const Move& move) {
    leave_end_game();
    const auto legal = find_legal(*this, move);
    const auto child = legal ? child_of(m_current, SanMove(*this, *legal).san()) : -1;
    if (child < 0) return {};
    step_to(child, *legal);
    return fen();
}

std::vector<Move> Game::continuations() const {
    const auto& node = m_tree.node(m_current);
    std::vector<Move> moves;
    for (const auto child : node.children) {
        const auto& next = m_tree.node(child);
        if (next.type == ElementType::move) moves.push_back(legal_move(next.san));
    }
    return moves;
}

/// The move of a text in the current position. Throws std::logic_error when it can't be read or made.
Move Game::legal_move(const std::string& san) const {
    if (san.empty()) throw std::logic_error("Game::forward: move without text\nfen()=" + fen());
    const auto legal = find_legal(*this, read_san(*this, san));
    if (!legal) throw std::logic_error("Game::forward: illegal move \"" + san + "\"\nfen()=" + fen());
    return *legal;
}

/// Ids are in no order of the text, so all are looked at: a click is rare, and an index by offset would
/// have to be kept at every print.
std::string Game::goto_text_offset(std::uint64_t offset) {
    if (offset <= movetext_begin()) return fen();
    const auto in_moves = offset - movetext_begin();
    for (std::int32_t id = 0; id < m_tree.end_id(); ++id) {
        if (!m_tree.has_node(id)) continue;
        const auto& node = m_tree.node(id);
        if (!node.printed || in_moves < node.text_begin || in_moves >= node.text_end) continue;
        replay(line_to(id));
        break;
    }
    return fen();
}

/// The ids from the root's child down to a node.
std::vector<std::int32_t> Game::line_to(std::int32_t id) const {
    std::vector<std::int32_t> line;
    for (; id != 0; id = m_tree.node(id).pid) line.push_back(id);
    std::reverse(line.begin(), line.end());
    return line;
}

/// Plays a line from the start, up to a result or a move that can't be made.
void Game::replay(const std::vector<std::int32_t>& line) {
    stand_at_start();
    try {
        for (const auto id : line) {
            const auto& node = m_tree.node(id);
            if (node.type != ElementType::move) return;
            step_to(id, legal_move(node.san));
        }
    } catch (const std::logic_error&) {
        // Where the text is faulty, the line can be shown up to there.
    }
}

}  // namespace velmora
