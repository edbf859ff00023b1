#include "views/moves/move_rows.h"

#include <algorithm>

#include "base/text.h"

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

/// "O-O" and "1-0" stay in one line: a line may else end behind the stroke.
std::string unbroken(std::string_view text) {
    constexpr std::string_view joiner = "\u2060";
    std::string result;
    for (const char c : text) {
        result += c;
        if (c == '-') result += joiner;
    }
    return result;
}

class RowBuilder {
public:
    RowBuilder(const MoveSheet& sheet, MovesLayout layout, const SignOf& sign_of)
        : m_sheet(sheet), m_layout(layout), m_sign_of(sign_of) {}

    MoveRows build() {
        for (m_item = 0; m_item < m_sheet.items().size(); ++m_item) add(m_sheet.items()[m_item]);
        return std::move(m_result);
    }

private:
    void add(const SheetItem& item);
    void add_move(const SheetItem& item);
    std::string with_symbol(const SheetItem& item) const;
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
    const SignOf& m_sign_of;
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
            append_place(unbroken(text::displayable(item.text)));
            break;
    }
}

/// "Nf3!", but "Nf3 =": what says something of the position stands apart from the move.
std::string RowBuilder::with_symbol(const SheetItem& item) const {
    std::string shown = unbroken(text::displayable(item.text));
    if (item.glyph.empty()) return shown;
    const std::string sign = m_sign_of(item.glyph);
    const bool of_move = sign.starts_with('!') || sign.starts_with('?');
    if (!of_move) shown += hard_blank;
    return shown + unbroken(text::displayable(sign));
}

void RowBuilder::add_move(const SheetItem& item) {
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
    append_place(with_symbol(item));
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

MoveRows rows_of(const MoveSheet& sheet, MovesLayout layout, const SignOf& sign_of) {
    return RowBuilder(sheet, layout, sign_of).build();
}

}  // namespace velmora
