#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "game/move_sheet.h"

namespace velmora {

/// How the main line is set: a row a move with a column a side, or in one running text like its variations.
enum class MovesLayout { columns, run_on };

enum class RowStyle { columns, main_text, variation, comment };

/// A part of a row that is set apart from the moves, in characters of the row.
struct RowSpan {
    enum class Kind { chip, comment };
    Kind kind = Kind::chip;
    int begin = 0;
    int end = 0;
    bool operator==(const RowSpan&) const = default;
};

/// One paragraph of the text: a pair of moves in columns ("12.", tab, White's, tab, Black's), a comment, or a
/// stretch of a line that nothing interrupts.
struct MoveRow {
    RowStyle style = RowStyle::columns;
    int depth = 0;  ///< of the variation
    std::string text;
    int characters = 0;  ///< of the text
    std::vector<RowSpan> spans;
    bool operator==(const MoveRow&) const = default;
};

/// Where a move or the result stands, in characters of its row.
struct MovePlace {
    std::size_t item = 0;  ///< in the sheet
    std::size_t row = 0;
    int begin = 0;
    int end = 0;
    int reach = 0;  ///< the end of the chips behind it, which belong to it for the pointer
};

/// The rows of a sheet, in the order in which they are read.
///
/// Rows know no ids, so that two sheets are compared row by row, and what is alike stays on the screen as it
/// is.
struct MoveRows {
    std::vector<MoveRow> rows;
    std::vector<MovePlace> places;  // in the order of the text
};

/// What is printed for a numeric glyph: "!" for "$1".
using SignOf = std::function<std::string(const std::string& glyph)>;

MoveRows rows_of(const MoveSheet& sheet, MovesLayout layout, const SignOf& sign_of);

}  // namespace velmora
