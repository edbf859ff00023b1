#include "game/move_section.h"

#include <stdexcept>

#include "channel/text.h"
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
    set_start(1, 1);
}

void MoveSection::set_start(std::int32_t color, std::int32_t move_number) {
    m_start_color = color;
    m_start_move_number = move_number;
}

void MoveSection::load(const std::vector<MoveToken>& tokens) {
    m_lines.assign(1, Line{});
    for (const auto& token : tokens) {
        if (!read_token(token)) break;
    }
    // Once for the whole game, also when the tokens ended inside a variation.
    link_children();
    number_moves();
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
            m_elements.back().comment = token.text;
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
    append_move().move_number = text::strict_integer<std::int32_t>(digits).value_or(0);
}

void MoveSection::add_san(std::string_view san) {
    if (is_opened_by_number(m_elements.back())) {
        m_elements.back().san = san;
        return;
    }
    const auto before = m_lines.back().current;
    auto& element = append_move();
    element.san = san;
    element.move_number =
        before < 0 ? m_start_move_number : m_elements[static_cast<std::size_t>(before)].move_number;
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
    line.current = element.id;
    return element;
}

/// The colour that moves after element `pid`. The root counts as White's, so that an alternative to White's
/// first move is taken for Black's.
std::int32_t MoveSection::answering_color(std::int32_t pid) const {
    return m_elements[static_cast<std::size_t>(pid)].color == 1 ? 0 : 1;
}

void MoveSection::open_variation() {
    if (m_elements.size() < 2 || m_lines.size() > deepest_variation) {
        throw std::logic_error("MoveSection::load invalid subvariation");
    }
    const auto current = m_lines.back().current;
    auto& marker = append(current);
    marker.type = ElementType::begin_variation;
    marker.color = no_color;
    m_lines.push_back({current, current});
}

void MoveSection::close_variation() {
    if (m_lines.size() == 1) return;
    auto& marker = append(m_lines.back().parent);
    marker.type = ElementType::end_variation;
    marker.color = no_color;
    m_lines.pop_back();
}

void MoveSection::add_result(std::string_view result) {
    const bool at_start = m_elements.back().type == ElementType::start_game;
    if (!at_start && result == "*") return;
    auto& element = append(at_start ? 0 : m_lines.back().current);
    element.type = ElementType::end_game;
    element.color = no_color;
    element.result = result;
}

void MoveSection::link_children() {
    for (std::size_t i = 1; i < m_elements.size(); ++i) {
        const auto& element = m_elements[i];
        if (element.is_marker()) continue;
        m_elements[static_cast<std::size_t>(element.pid)].children.push_back(element.id);
    }
}

/// Moves are counted from the root; of the numbers in the text, only that of a first move by White is kept.
void MoveSection::number_moves() {
    m_elements[0].move_number = m_start_move_number;
    for (std::size_t i = 1; i < m_elements.size(); ++i) {
        auto& element = m_elements[i];
        const auto before = m_elements[static_cast<std::size_t>(element.pid)].move_number;
        if (element.color == 0) {
            element.move_number = before;
        } else if (element.color == 1 && i != 1) {
            element.move_number = next_move_number(before);
        }
    }
}

}  // namespace velmora
