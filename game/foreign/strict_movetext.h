#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The moves of a game in the order of their text, and the movetext that the strict reader reads from them
/// without loss.
///
/// The strict form of a comment of more than 1,024 bytes: the move has the first part, and behind it stands a
/// variation for each further part, which repeats the move alone and has the part for its comment:
/// "5. Nf3 {one} (5. Nf3 {two}) Nc6". A comment replaces the one ahead of it, so no other place that a reader
/// keeps belongs to this move; and a variation stays where it is when the game is saved. At the game's start
/// and its first move nothing that is written has alternatives, so there the further parts wait for the
/// second move. Parts end at blanks where there are any, so that joined by blanks they are the whole.
class StrictMovetext {
public:
    /// Of what is added, by its place in the order.
    using Index = std::size_t;
    static constexpr Index game_start = static_cast<Index>(-1);

    /// @param first_number  of the first move; less than 1, which a damaged tag may say, is no number
    StrictMovetext(std::int32_t first_number, bool black_begins)
        : m_first_number(std::max(first_number, std::int32_t{1})), m_black_begins(black_begins) {}

    /// @param ply  moves from the game's start, 0 for its first move
    Index add_move(std::string_view san, std::size_t ply, std::size_t depth);
    void open_variation() { m_elements.push_back({Kind::open}); }
    void close_variation() { m_elements.push_back({Kind::close}); }
    /// Takes back an open_variation() behind which nothing came.
    void drop_open_variation() { m_elements.pop_back(); }

    /// Text at the end of a move's comment, a blank ahead of it where there is one.
    void append_comment(Index move, std::string_view comment);

    /// The first glyph of a move is its own, the others go into its comment as signs.
    void add_glyph(Index move, std::string_view glyph);

    /// "12." or "12...", of a move so many plies from the game's start.
    std::string number(std::size_t ply) const;

    /// The movetext with its result, lines of some 80 columns.
    /// @param cut  told whether text was dropped, in a game without moves; else false
    /// @param split  told whether a comment went on in variations
    std::string text(std::string_view result, bool& cut, bool& split) const;

private:
    enum class Kind : std::uint8_t { move, open, close };
    /// Kept small, since a game may have a million: 20 bytes, comments apart.
    struct Element {
        Kind kind = Kind::move;
        std::uint8_t glyph = 0;  // its number, 0 for none
        bool is_main_line = false;
        std::array<char, 9> san{};  // the longest, "Qa1xb2+", has 7
        std::uint32_t ply = 0;
        std::uint32_t comment = 0;  // index into m_comments
    };
    class Writer;

    std::string& comment_of(Index move);

    std::int32_t m_first_number;
    bool m_black_begins;
    std::vector<Element> m_elements;
    std::vector<std::string> m_comments{std::string()};  // the first is the empty one of all without
    std::string m_start_comment;
};

/// Text as the strict reader has it between braces: these become parentheses, control characters blanks.
std::string braceless(std::string_view text);

}  // namespace velmora
