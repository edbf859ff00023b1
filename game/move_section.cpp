#include "game/move_section.h"

#include <stdexcept>

#include "base/text.h"
#include "game/move_numbers.h"

namespace velmora {

namespace {

bool is_opened_by_number(const MoveSectionElement& element) {
    return element.type == ElementType::move && element.san.empty();
}

}  // namespace

void MoveSection::reset() {
    m_elements.clear();
    m_elements.append().type = ElementType::start_game;
    m_markers = 0;
    set_start(Side::white, 1);
}

void MoveSection::set_start(Side color, std::int32_t move_number) {
    m_start_color = color;
    m_start_move_number = move_number;
}

void MoveSection::load(std::span<const MoveToken> tokens) {
    m_lines.assign(1, Line{});
    m_replaced_comment.clear();
    for (const auto& token : tokens) {
        if (!read_token(token)) break;
    }
    drop_number_without_move();
    // Once for the whole game, also when the tokens ended inside a variation.
    link_and_number();
}

/// False when the game ends with this token.
bool MoveSection::read_token(const MoveToken& token) {
    switch (token.kind) {
        case TokenKind::integer:
            add_number(token.text);
            break;
        case TokenKind::san:
            add_san(token.text);
            break;
        case TokenKind::comment:
            set_comment(token.text);
            break;
        case TokenKind::nag:
            m_elements.back().nag = token.text;
            break;
        case TokenKind::variation_open:
            open_variation();
            break;
        case TokenKind::variation_close:
            close_variation();
            break;
        case TokenKind::result:
            add_result(token.text);
            return false;
        default:
            break;
    }
    return true;
}

void MoveSection::add_number(std::string_view digits) {
    // The writer prints some numbers twice; the second one must not open a move of its own.
    if (is_opened_by_number(m_elements.back())) return;
    auto& element = append_move();
    if (element.id == 1) element.move_number = text::strict_integer<std::int32_t>(digits).value_or(0);
}

void MoveSection::add_san(std::string_view san) {
    auto& element = is_opened_by_number(m_elements.back()) ? m_elements.back() : append_move();
    element.san = san;
}

/// A comment replaces the one ahead of it.
void MoveSection::set_comment(std::string_view text) {
    auto& comment = m_elements.back().comment;
    m_replaced_comment.clear();
    if (!comment.empty()) {
        m_replaced_comment.swap(comment);
        m_commented_twice = m_elements.size();
    }
    comment = text;
}

MoveSectionElement& MoveSection::append(std::int32_t pid) {
    const auto id = static_cast<std::int32_t>(m_elements.size());
    auto& element = m_elements.append();
    element.id = id;
    element.pid = pid;
    return element;
}

/// A move behind the last element, which decides whose child it is.
MoveSectionElement& MoveSection::append_move() {
    auto& line = m_lines.back();
    const auto last = m_elements.back().type;
    auto pid = line.current;
    if (last == ElementType::start_game) {
        pid = 0;
    } else if (last == ElementType::begin_variation) {
        pid = m_elements[static_cast<std::size_t>(line.current)].pid;
    }
    const auto color = last == ElementType::start_game ? m_start_color : answering_color(pid);
    auto& element = append(pid);
    element.color = color;
    // All but the first are numbered at the end.
    element.move_number = m_start_move_number;
    line.current = element.id;
    return element;
}

/// The colour that moves after element `pid`. The root counts as White's, so that an alternative to White's
/// first move is taken for Black's.
Side MoveSection::answering_color(std::int32_t pid) const {
    return m_elements[static_cast<std::size_t>(pid)].color == Side::white ? Side::black : Side::white;
}

void MoveSection::append_marker(ElementType type, std::int32_t pid) {
    auto& marker = append(pid);
    marker.type = type;
    marker.color.reset();
    ++m_markers;
}

void MoveSection::open_variation() {
    if (m_elements.size() < 2 || m_lines.size() > deepest_variation) {
        throw std::logic_error("MoveSection::load invalid subvariation");
    }
    const auto current = m_lines.back().current;
    append_marker(ElementType::begin_variation, current);
    m_lines.push_back({current, current});
}

void MoveSection::close_variation() {
    if (m_lines.size() == 1) return;
    append_marker(ElementType::end_variation, m_lines.back().parent);
    m_lines.pop_back();
}

/// Many programs write the number of the move that wasn't played any more: "34. 1-0". A comment that stands
/// there belongs to the end of the game.
void MoveSection::drop_number_without_move() {
    const auto& number = m_elements.back();
    if (!is_opened_by_number(number)) return;
    auto& last_move = m_elements[static_cast<std::size_t>(number.pid)];
    if (!number.comment.empty()) last_move.comment += (last_move.comment.empty() ? "" : " ") + number.comment;
    m_lines.back().current = number.pid;
    m_elements.drop_back();
}

void MoveSection::add_result(std::string_view result) {
    drop_number_without_move();
    if (result != "*" && !m_replaced_comment.empty() && m_commented_twice == m_elements.size()) {
        // What stands ahead of a result is the comment of the ending: the last move keeps its own.
        auto& comment = m_elements.back().comment;
        comment = m_replaced_comment + " " + comment;
    }
    const bool at_start = m_elements.back().type == ElementType::start_game;
    if (!at_start && result == "*") return;
    auto& element = append(at_start ? 0 : m_lines.back().current);
    element.type = ElementType::end_game;
    element.color.reset();
    element.result = result;
}

/// Enters children at their parents and counts the moves from the root; of the numbers in the text, only that
/// of a first move by White is kept. Parents stand ahead of their children, so that one pass does.
void MoveSection::link_and_number() {
    m_elements[0].move_number = m_start_move_number;
    for (std::size_t i = 1; i < m_elements.size(); ++i) {
        auto& element = m_elements[i];
        if (element.is_marker()) continue;
        auto& parent = m_elements[static_cast<std::size_t>(element.pid)];
        parent.children.push_back(element.id);
        if (element.color == Side::black) {
            element.move_number = parent.move_number;
        } else if (element.color == Side::white && i != 1) {
            element.move_number = next_move_number(parent.move_number);
        }
    }
}

}  // namespace velmora
