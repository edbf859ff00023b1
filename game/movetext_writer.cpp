#include "game/movetext_writer.h"

#include <charconv>

#include "game/annotations.h"

namespace velmora {

namespace {

void append_number(std::string& text, std::int32_t number) {
    char digits[12];
    const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
    text.append(digits, end);
}

/// Whatever stands in the record: nothing but its closing brace ends it, and it can be read back.
void append_comment(std::string& text, std::string_view comment) {
    text += '{';
    if (is_readable_comment(comment)) {
        text += comment;
    } else {
        text += readable_comment(comment);
    }
    text += '}';
}

/// A result with or without a sentence; of a sentence with braces, all between the outermost is one comment.
void append_ending(std::string& text, std::string_view ending) {
    const auto open = ending.find('{');
    if (open == std::string_view::npos) {
        text += ending;
        return;
    }
    const auto close = ending.rfind('}');
    const auto end = close == std::string_view::npos || close < open ? ending.size() : close;
    text += ending.substr(0, open);
    append_comment(text, ending.substr(open + 1, end - open - 1));
    if (end < ending.size()) text += ending.substr(end + 1);
}

void append_node_text(std::string& text, const MoveSectionElement& node) {
    switch (node.type) {
        case ElementType::move:
            text += node.san;
            if (!node.nag.empty()) text.append(" ").append(node.nag);
            if (!node.comment.empty()) append_comment(text += ' ', node.comment);
            break;
        case ElementType::end_game:
            append_ending(text += ' ', node.result);
            break;
        case ElementType::begin_variation:
            text += " (";
            break;
        case ElementType::end_variation:
            text += ")";
            break;
        case ElementType::start_game:
            break;
    }
}

}  // namespace

std::string node_text(const MoveSectionElement& node) {
    std::string text;
    append_node_text(text, node);
    return text;
}

std::string MovetextWriter::text() {
    for (std::int32_t id = 0; id < m_tree.end_id(); ++id) {
        if (m_tree.has_node(id)) m_tree.node(id).printed = false;
    }
    write_start();
    // Node 1 wherever there is one. A game that was loaded without moves gives its first move another id.
    if (const auto first = m_tree.node(0).child_at(0); first > 0) write_lines(first);
    if (!has_result()) m_text += " *";
    return std::move(m_text);
}

void MovetextWriter::write_start() {
    const auto& root = m_tree.node(0);
    m_text.clear();
    m_text_offset = 0;
    if (!root.comment.empty()) {
        append_comment(m_text, root.comment);
        m_text += " \n";
    } else if (m_tree.start_color() == Side::black) {
        append_number(m_text, m_tree.start_move_number());
        m_text += "...";
        m_text_offset = m_text.size();
    }
}

/// The main line's next move is written ahead of its alternatives, as the PGN standard (8.2.5) has it: a
/// variation replaces the move that stands in front of it.
void MovetextWriter::write_lines(std::int32_t first) {
    auto id = first;
    do {
        write_node(id);
        const auto& node = m_tree.node(id);
        if (node.children_count() > 1) {
            write_node(node.child_at(0));
            m_open.push_back({id, 2});
            id = node.child_at(1);
            open_variation(id);
        } else if (node.children_count() == 1) {
            id = node.child_at(0);
        } else if (!next_line(id)) {
            return;
        }
    } while (true);
}

/// At the end of a line: the next variation of the innermost branching, or its main line. False when all is
/// written.
bool MovetextWriter::next_line(std::int32_t& id) {
    if (m_open.empty()) return false;
    m_text += ')';
    auto& branching = m_open.back();
    const auto& node = m_tree.node(branching.id);
    if (branching.next_child < node.children_count()) {
        id = node.child_at(branching.next_child++);
        open_variation(id);
    } else {
        id = node.child_at(0);
        m_open.pop_back();
    }
    return true;
}

void MovetextWriter::open_variation(std::int32_t id) {
    m_text += " (";
    write_number(m_tree.node(id), true);
}

void MovetextWriter::write_node(std::int32_t id) {
    auto& node = m_tree.node(id);
    if (node.printed) return;
    write_number(node, false);
    node.text_begin = m_text.size();
    append_node_text(m_text, node);
    node.text_end = m_text.size();
    node.printed = true;
}

void MovetextWriter::write_number(const MoveSectionElement& node, bool opens_variation) {
    if (node.type == ElementType::end_game) return;
    if (node.color == Side::white && !opens_variation) {
        if (node.id > 1) m_text += ' ';
        append_number(m_text, node.move_number);
        m_text += '.';
    } else if (node.color == Side::black) {
        m_text += ' ';
        if (opens_variation || !m_tree.node(node.pid).comment.empty()) {
            append_number(m_text, node.move_number);
            m_text += "...";
        }
    }
}

/// PGN wants a termination marker at the end of every game (8.2.6), "*" where nothing is known.
bool MovetextWriter::has_result() const {
    auto id = m_tree.node(0).child_at(0);
    if (id < 0) return false;
    while (m_tree.node(id).children_count() > 0) id = m_tree.node(id).child_at(0);
    return m_tree.node(id).type == ElementType::end_game;
}

}  // namespace velmora
