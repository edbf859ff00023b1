#include "views/moves/move_rows.h"

#include <algorithm>

#include "base/text.h"
#include "game/move_symbols.h"

namespace velmora {

namespace {

constexpr std::string_view hard_blank = "\u00A0";
constexpr std::string_view thin_blank = "\u202F";  // inside a chip; breaks no line either
constexpr std::string_view ellipsis = "\u2026";    // in the place of White's move

bool is_continuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

int characters(std::string_view text) {
    return static_cast<int>(
        std::count_if(text.begin(), text.end(), [](char c) { return !is_continuation(c); }));
}

/// "Nf3!", but "Nf3 =": what says something of the position stands apart from the move.
std::string with_symbol(const SheetItem& item) {
    if (item.glyph.empty()) return item.text;
    const std::string_view sign = sign_of(item.glyph);
    const bool of_move = !sign.empty() && (sign.front() == '!' || sign.front() == '?');
    return item.text + std::string(of_move ? "" : hard_blank) + std::string(sign);
}

class RowBuilder {
public:
    RowBuilder(const MoveSheet& sheet, MovesLayout layout) : m_sheet(sheet), m_layout(layout) {}

    MoveRows build() {
        for (m_item = 0; m_item < m_sheet.items().size(); ++m_item) add(m_sheet.items()[m_item]);
        return std::move(m_result);
    }

private:
    void add(const SheetItem& item);
    void add_move(const SheetItem& item);
    void add_chip(const SheetItem& item);
    void add_comment(const SheetItem& item);
    bool in_columns(const SheetItem& item) const {
        return item.depth == 0 && m_layout == MovesLayout::columns;
    }

    MoveRow& begin_row(RowStyle style, int depth);
    MoveRow& running_row(const SheetItem& item);
    void append(std::string_view text);
    void append_place(std::string_view text);

    const MoveSheet& m_sheet;
    const MovesLayout m_layout;
    MoveRows m_result;
    std::size_t m_item = 0;
    bool m_row_ended = true;
    bool m_black_due = false;  // the last row has a place for Black's move
};

MoveRow& RowBuilder::begin_row(RowStyle style, int depth) {
    m_row_ended = false;
    m_black_due = false;
    auto& row = m_result.rows.emplace_back();
    row.style = style;
    row.depth = depth;
    return row;
}

/// The row in which a line goes on, or a new one; with a blank at its end where something stands in it.
MoveRow& RowBuilder::running_row(const SheetItem& item) {
    const auto style = item.depth == 0 ? RowStyle::main_text : RowStyle::variation;
    if (m_row_ended || m_result.rows.back().style != style || m_result.rows.back().depth != item.depth) {
        return begin_row(style, item.depth);
    }
    append(" ");
    return m_result.rows.back();
}

void RowBuilder::append(std::string_view text) {
    auto& row = m_result.rows.back();
    row.text += text;
    row.characters += characters(text);
}

void RowBuilder::append_place(std::string_view text) {
    const int begin = m_result.rows.back().characters;
    append(text);
    const int end = m_result.rows.back().characters;
    m_result.places.push_back({m_item, m_result.rows.size() - 1, begin, end, end});
}

void RowBuilder::add(const SheetItem& item) {
    switch (item.kind) {
        case SheetItemKind::move:
            add_move(item);
            break;
        case SheetItemKind::comment:
            add_comment(item);
            break;
        case SheetItemKind::chip:
            add_chip(item);
            break;
        case SheetItemKind::variation_begin:
        case SheetItemKind::variation_end:
            m_row_ended = true;
            m_black_due = false;
            break;
        case SheetItemKind::result:
            if (in_columns(item)) m_row_ended = true;
            running_row(item);
            append_place(text::displayable(item.text));
            break;
    }
}

void RowBuilder::add_move(const SheetItem& item) {
    const auto shown = text::displayable(with_symbol(item));
    if (!in_columns(item)) {
        running_row(item);
        if (item.numbered) append(item.number + std::string(hard_blank));
    } else if (item.side == Side::black && m_black_due) {
        append("\t");
        m_black_due = false;
    } else {
        begin_row(RowStyle::columns, 0);
        append(item.number.substr(0, item.number.find('.') + 1) + "\t");
        if (item.side == Side::black) append(std::string(ellipsis) + "\t");
        m_black_due = item.side == Side::white;
    }
    append_place(shown);
}

/// A chip stands behind its move, in the same row.
void RowBuilder::add_chip(const SheetItem& item) {
    append(" ");
    auto& row = m_result.rows.back();
    const int begin = row.characters;
    append(thin_blank);
    append(text::displayable(item.text));
    append(thin_blank);
    row.spans.push_back({RowSpan::Kind::chip, begin, row.characters});
    m_result.places.back().reach = row.characters;
}

void RowBuilder::add_comment(const SheetItem& item) {
    auto& row = in_columns(item) ? begin_row(RowStyle::comment, 0) : running_row(item);
    const int begin = row.characters;
    append(text::displayable(item.text));
    row.spans.push_back({RowSpan::Kind::comment, begin, row.characters});
    if (in_columns(item)) m_row_ended = true;
}

}  // namespace

MoveRows rows_of(const MoveSheet& sheet, MovesLayout layout) { return RowBuilder(sheet, layout).build(); }

}  // namespace velmora
