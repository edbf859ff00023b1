#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// What the second reader has to say of a game. The first ones tell what was repaired; from `tag_shortened`
/// on, what could not be.
enum class RemarkKind : std::uint8_t {
    encoding,           ///< bytes that are no UTF-8 were read as Windows-1252, or the text was UTF-16
    tag_form,           ///< brackets, quotes or line ends in a tag, or one that isn't closed
    tags_missing,       ///< not a single tag
    semicolon_comment,  ///< a comment up to the end of the line
    long_comment,       ///< a comment of more bytes than one may have: it goes on in variations
    open_comment,       ///< a comment without its closing brace
    comment_place,      ///< a comment behind a parenthesis or the result
    figurine,
    castling,    ///< "0-0"
    promotion,   ///< "a8Q", "a8(Q)", "a8/Q"
    en_passant,  ///< "e.p."
    move_form,   ///< a move in another spelling, such as "g1f3" or with a dash
    sign,        ///< "+=", "±": a numeric glyph
    null_move,   ///< the line ends there, the rest of it is a comment
    variation,   ///< empty, not closed, or a result within it
    result_form,
    result_missing,
    word,           ///< a word among the moves that is none: a comment
    tag_shortened,  ///< a value of more bytes than one may have
    tags_dropped,   ///< more tags than any program has written
    bad_fen,
    illegal_move,  ///< a move that can't be read or made: the rest of its line is a comment
    ambiguous_move,
    comment_cut,  ///< more text than fits into a game without moves
    too_long,     ///< a game of more bytes than are read
};

/// Whether something of the game could not be kept as what it is.
constexpr bool is_loss(RemarkKind kind) { return kind >= RemarkKind::tag_shortened; }

/// All remarks of one kind about one game.
struct Remark {
    RemarkKind kind = RemarkKind::encoding;
    std::uint64_t line = 0;    ///< of the first one, from 1
    std::uint64_t column = 0;  ///< in characters, from 1
    std::size_t count = 1;
    std::string move;    ///< "12." or "12...", empty in the header
    std::string detail;  ///< of the first one, as it stands in the file; may be empty
};

/// "line 14, column 3, move 12...: castling written with zeros: 0-0 (2 times)".
std::string describe(const Remark& remark);

/// Gathers the remarks about one text, one entry a kind: so their number is bounded, whatever is in a file.
class RemarkList {
public:
    /// @param text        outlives the list
    /// @param first_line  the number of the text's first line
    RemarkList(std::string_view text, std::uint64_t first_line) : m_text(text), m_first_line(first_line) {}

    /// @param offset  of the place, in bytes from the begin of the text
    void add(RemarkKind kind, std::size_t offset, std::string_view move = {}, std::string_view detail = {});

    bool has(RemarkKind kind) const;
    std::vector<Remark> take() { return std::move(m_remarks); }

private:
    std::string_view m_text;
    std::uint64_t m_first_line;
    std::vector<Remark> m_remarks;
};

}  // namespace velmora
