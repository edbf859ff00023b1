#include "game/move_sheet.h"

#include <algorithm>

#include "base/text.h"
#include "game/comment_parts.h"
#include "game/move_numbers.h"
#include "game/move_symbols.h"

namespace velmora {

/// Walks the lines of a tree, the open ones in a list of its own: no depth of nesting uses up the stack.
class MoveSheetBuilder {
public:
    MoveSheetBuilder(const GameTree& tree, std::int32_t covered, MoveSheet& sheet)
        : m_tree(tree), m_covered(covered), m_sheet(sheet) {}

    void build();

private:
    struct Ply {
        Side side = Side::white;
        std::int32_t number = 1;
    };
    /// A line that is being walked: how far it has come, and which alternative to its next move is due.
    struct Line {
        std::int32_t at = 0;
        std::size_t alternative = 1;
        Ply next;
    };

    void open_variation(std::int32_t id, Ply ply);
    void enter(std::int32_t id, Ply next);
    void add_node(std::int32_t id, Ply ply);
    void add_move(std::int32_t id, const MoveSectionElement& node, Ply ply);
    void add_chips(std::int32_t id, const CommentParts& parts);
    void add_comment(std::int32_t id, std::string text);
    void add_result(std::int32_t id, std::string_view result);
    SheetItem& add(SheetItemKind kind, std::int32_t id);

    static Ply after(Ply ply) {
        return {opposite(ply.side), ply.side == Side::white ? ply.number : next_move_number(ply.number)};
    }

    const GameTree& m_tree;
    const std::int32_t m_covered;
    MoveSheet& m_sheet;
    std::vector<Line> m_lines;  // innermost last
    bool m_number_due = true;   // something stands between the next move and the one ahead of it
};

void MoveSheetBuilder::build() {
    m_sheet.m_index.assign(static_cast<std::size_t>(m_tree.end_id()), MoveSheet::none);
    m_lines.emplace_back();
    const auto& root = m_tree.node(0);
    add_comment(0, split_comment(root.comment).text);
    const auto first = root.child_at(0);
    const auto number = first > 0 ? m_tree.node(first).move_number : m_tree.start_move_number();
    enter(0, {m_tree.start_color(), std::max(number, 1)});
    while (!m_lines.empty()) {
        Line& line = m_lines.back();
        const auto& node = m_tree.node(line.at);
        if (line.at != m_covered && line.alternative < node.children_count()) {
            open_variation(node.child_at(line.alternative++), line.next);
        } else if (node.children_count() > 0) {
            enter(node.child_at(0), after(line.next));
        } else {
            const auto end = line.at;
            if (m_lines.size() > 1) add(SheetItemKind::variation_end, end);
            m_lines.pop_back();
            m_number_due = true;
        }
    }
}

void MoveSheetBuilder::open_variation(std::int32_t id, Ply ply) {
    m_lines.emplace_back();
    add(SheetItemKind::variation_begin, id);
    m_number_due = true;
    add_node(id, ply);
    enter(id, after(ply));
}

/// The innermost line comes to a node, whose move is there already; its next move follows at once, ahead of
/// the alternatives to it.
void MoveSheetBuilder::enter(std::int32_t id, Ply next) {
    m_lines.back() = {id, 1, next};
    if (const auto child = m_tree.node(id).child_at(0); child > 0) add_node(child, next);
}

SheetItem& MoveSheetBuilder::add(SheetItemKind kind, std::int32_t id) {
    auto& item = m_sheet.m_items.emplace_back();
    item.kind = kind;
    item.node = id;
    item.depth = static_cast<std::int32_t>(m_lines.size()) - 1;
    return item;
}

void MoveSheetBuilder::add_node(std::int32_t id, Ply ply) {
    const auto& node = m_tree.node(id);
    if (node.type == ElementType::end_game) {
        add_result(id, node.result);
    } else {
        add_move(id, node, ply);
    }
}

void MoveSheetBuilder::add_move(std::int32_t id, const MoveSectionElement& node, Ply ply) {
    m_sheet.m_index[static_cast<std::size_t>(id)] = m_sheet.m_items.size();
    auto& item = add(SheetItemKind::move, id);
    item.side = ply.side;
    item.text = node.san;
    item.number = std::to_string(ply.number) + (ply.side == Side::white ? "." : "...");
    item.numbered = m_number_due || ply.side == Side::white;
    item.glyph = node.nag;
    const auto& siblings = m_tree.node(node.pid).children;
    if (siblings.size() > 1 && node.pid != m_covered) {
        const auto place = m_tree.place_of(id);
        if (place > 0) item.above = siblings[place - 1];
        if (place + 1 < siblings.size()) item.below = siblings[place + 1];
    }
    m_number_due = false;
    if (node.comment.empty()) return;
    auto parts = split_comment(node.comment);
    add_chips(id, parts);
    add_comment(id, std::move(parts.text));
}

void MoveSheetBuilder::add_chips(std::int32_t id, const CommentParts& parts) {
    struct Source {
        std::string_view name;
        ChipKind kind;
        std::string (*text)(std::string_view value);
    };
    static constexpr Source sources[] = {{"eval", ChipKind::evaluation, evaluation_text},
                                         {"clk", ChipKind::clock, clock_text},
                                         {"emt", ChipKind::elapsed, elapsed_text}};
    for (const auto& source : sources) {
        for (const auto& [name, value] : parts.annotations) {
            auto text = name == source.name ? source.text(value) : std::string();
            if (text.empty()) continue;
            auto& chip = add(SheetItemKind::chip, id);
            chip.chip = source.kind;
            chip.text = std::move(text);
        }
    }
}

void MoveSheetBuilder::add_comment(std::int32_t id, std::string text) {
    if (text.empty()) return;
    add(SheetItemKind::comment, id).text = std::move(text);
    m_number_due = true;
}

/// The words in braces ahead of a result are a comment.
void MoveSheetBuilder::add_result(std::int32_t id, std::string_view result) {
    const auto open = result.find('{'), close = result.rfind('}');
    if (open != std::string_view::npos && close != std::string_view::npos && open < close) {
        add_comment(id, split_comment(result.substr(open + 1, close - open - 1)).text);
        result.remove_prefix(close + 1);
    }
    m_sheet.m_index[static_cast<std::size_t>(id)] = m_sheet.m_items.size();
    add(SheetItemKind::result, id).text = text::trim_blanks(result);
}

MoveSheet::MoveSheet(const GameTree& tree, std::int32_t covered) {
    MoveSheetBuilder(tree, covered, *this).build();
}

std::size_t MoveSheet::index_of(std::int32_t node) const {
    return node >= 0 && static_cast<std::size_t>(node) < m_index.size()
               ? m_index[static_cast<std::size_t>(node)]
               : none;
}

std::string MoveSheet::in_words(std::size_t index) const {
    const auto& move = m_items[index];
    std::string words = move.number + " " + move.text;
    if (!move.glyph.empty()) words.append(", ").append(name_of(move.glyph));
    for (auto next = index + 1; next < m_items.size() && m_items[next].kind == SheetItemKind::chip; ++next) {
        const auto& chip = m_items[next];
        words += ", ";
        if (chip.chip == ChipKind::clock) words += "clock ";
        if (chip.chip == ChipKind::elapsed) words += "took ";
        words += chip.text;
    }
    if (move.depth > 0) words += ", variation";
    return words;
}

}  // namespace velmora
