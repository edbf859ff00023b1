#include "game/game.h"

#include <stdexcept>

#include "chess/moves/legal_moves.h"
#include "chess/notation/san_move.h"
#include "game/annotations.h"

namespace velmora {

void Game::reset() {
    m_tags.reset();
    m_tree.reset();
    m_editor.forget();
    stand_at_start();
}

void Game::parse_pgn(std::string_view text) {
    m_tags.reset();
    m_tree.reset();
    m_editor.forget();
    m_section.reset();
    const auto tokens = m_tokenizer.tokenize(text);
    read_tags(tokens);
    stand_at_start();
    m_section.set_start(m_tags.start_color(), m_tags.start_move_number());
    m_section.load(tokens);
    m_tree.rebuild(m_section);
}

/// The tags ahead of the first token that can't belong to a header.
void Game::read_tags(std::span<const MoveToken> tokens) {
    std::string_view name;
    for (const auto& token : tokens) {
        switch (token.kind) {
            case TokenKind::tag_name:
                name = token.text;
                break;
            case TokenKind::tag_value:
                m_tags.set(name, token.text);
                break;
            case TokenKind::integer:
            case TokenKind::san:
            case TokenKind::dot:
            case TokenKind::result:
                return;
            default:
                break;
        }
    }
}

void Game::set_tag(std::string_view name, std::string_view value) {
    m_tags.set(name, value);
    if (name != "FEN") return;
    set_fen(value);
    m_tree.set_start_color(m_tags.start_color());
}

std::string Game::title() const { return tag("White") + " " + tag("Black"); }

// --- growing the tree ---

void Game::add_move(const Move& move) {
    const auto legal = find_legal(*this, move);
    if (!legal)
        throw std::logic_error("Game::add_move: illegal move " + move.to_string(false) + "\nfen()=" + fen());
    remove_end_marker();
    const SanMove san(*this, *legal);
    auto id = child_of(m_current, san.san());
    if (id < 0) {
        MoveSectionElement added;
        added.san = san.san();
        id = m_tree.add_child(m_current, added);
    }
    step_to(id, *legal);
}

std::int32_t Game::child_of(std::int32_t id, std::string_view san) const {
    for (const auto child : m_tree.node(id).children) {
        if (m_tree.node(child).san == san) return child;
    }
    return -1;
}

void Game::step_to(std::int32_t id, const Move& move) {
    do_move(move);
    m_current = id;
}

/// At the current node or as its first child: the two places where add_end_game() and a load put it. -1
/// without one.
std::int32_t Game::end_marker() const {
    const auto& node = m_tree.node(m_current);
    if (node.type == ElementType::end_game) return m_current;
    const auto child = node.child_at(0);
    return child > 0 && m_tree.node(child).type == ElementType::end_game ? child : -1;
}

/// A game that goes on has no result. Left where it is, the marker would hide all that follows: stepping
/// stops ahead of it, and readers stop at it.
void Game::remove_end_marker() {
    const auto marker = end_marker();
    if (marker < 0) return;
    m_current = m_tree.node(marker).pid;
    m_tree.remove_leaf(marker);
    m_tags.set("Result", "*");
}

void Game::add_end_game(std::string_view text) {
    auto marker = end_marker();
    if (marker < 0) {
        MoveSectionElement added;
        added.type = ElementType::end_game;
        marker = m_tree.add_child(m_current, added);
    }
    m_tree.node(marker).result = text;
    m_current = marker;
}

void Game::set_result(std::string& text) {
    std::string word = "*";
    for (const auto* result : {"1-0", "0-1", "1/2-1/2"}) {
        if (text.find(result) == std::string::npos) continue;
        add_end_game(text);
        word = result;
        break;
    }
    text = word;
    m_tags.set("Result", word);
}

// --- tags ---

namespace {

/// Letters, digits and underscores (PGN standard, 8.1.1).
std::string tag_name(std::string_view text) {
    std::string name;
    for (const char c : text) {
        const bool is_letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
        if (is_letter || (c >= '0' && c <= '9') || c == '_') name += c;
    }
    return name;
}

}  // namespace

bool Game::replace_tags(const TagList& tags) {
    const std::string before = m_tags.print();
    const std::string old_result = result();
    GameTags changed;
    for (const auto& [name, value] : tags) {
        const std::string safe_name = tag_name(name);
        if (safe_name.empty() || safe_name == "FEN" || safe_name == "SetUp") continue;
        changed.set(safe_name, tag_safe(value));
    }
    for (const char* name : {"SetUp", "FEN"}) {
        if (m_tags.contains(name)) changed.set(name, m_tags.get(name));
    }
    m_tags = std::move(changed);
    if (result() != old_result) end_main_line(result());
    return m_tags.print() != before;
}

void Game::end_main_line(const std::string& result) {
    auto last = std::int32_t{0};
    for (auto next = m_tree.node(last).child_at(0); next > 0; next = m_tree.node(last).child_at(0))
        last = next;
    const auto stood = m_current;
    m_current = last;
    if (result == "*") {
        remove_end_marker();
    } else {
        add_end_game(result);
    }
    if (m_tree.has_node(stood)) m_current = stood;
}

// --- comments ---

/// A result has no comment that would be printed: the move ahead of it takes it.
MoveSectionElement& Game::commented_node() {
    auto& node = m_tree.node(m_current);
    return node.type == ElementType::end_game ? m_tree.node(node.pid) : node;
}

const std::string& Game::comment() const { return const_cast<Game*>(this)->commented_node().comment; }

void Game::set_comment(std::string_view text) { commented_node().comment = text; }

void Game::append_comment(std::string_view text) { commented_node().comment += text; }

void Game::set_root_comment(std::string_view text) { m_tree.node(0).comment = text; }

void Game::strip_annotations() {
    for (std::int32_t id = 0; id < m_tree.end_id(); ++id) {
        if (!m_tree.has_node(id)) continue;
        auto& comment = m_tree.node(id).comment;
        comment = without_annotations(comment);
    }
}

// --- text ---

std::string Game::pgn() { return tags_text() + m_tree.movetext() + "\n\n"; }

std::pair<std::uint64_t, std::uint64_t> Game::current_text_range() const {
    const auto& node = m_tree.node(m_current);
    return {movetext_begin() + node.text_begin, movetext_begin() + node.text_end};
}

}  // namespace velmora
