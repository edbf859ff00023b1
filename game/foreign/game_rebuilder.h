#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "chess/moves/position.h"
#include "game/foreign/foreign_tokens.h"
#include "game/foreign/move_word.h"
#include "game/foreign/remark.h"
#include "game/foreign/strict_movetext.h"

namespace velmora {

/// Plays the tokens of a foreign game and keeps what was played, as far as each line goes.
///
/// Moves are found among the legal ones and written anew, so that whoever reads the result can make every one
/// of them. What can't be a move where it stands ends its line, and the rest of the line becomes a comment as
/// it came: a person still sees it, and no program stumbles over it.
class GameRebuilder {
public:
    /// @param text  the game, of which the tokens are; outlives the rebuilder
    /// @param first_number  of the first move
    GameRebuilder(std::string_view text, const ChessPosition& start, std::int32_t first_number,
                  RemarkList& remarks);

    /// Text ahead of the first move.
    void add_start_comment(std::string_view comment) {
        m_moves.append_comment(StrictMovetext::game_start, comment);
    }

    /// Takes one token after the other, up to the one of the kind `end`.
    void take(const ForeignToken& token);

    const StrictMovetext& moves() const { return m_moves; }
    /// The moves of the main line that were made.
    std::size_t main_line_plies() const { return m_lines.front().plies; }
    /// The last result that stood in the main line; empty without one.
    std::string_view result() const { return m_result; }

private:
    /// A line while it is read: the main line or an open variation.
    struct Line {
        ChessPosition position;   // at its end
        std::size_t plies = 0;    // from the game's start
        std::size_t history = 0;  // moves that the position can take back
        StrictMovetext::Index last_move = StrictMovetext::game_start;
        std::string lead;  // comments that wait for the first move
        bool has_moves = false;
        bool is_broken = false;
        std::size_t broken_at = 0;     // of the text that becomes a comment
        std::size_t broken_depth = 0;  // variations that are open within it
        std::size_t opened_at = 0;     // offset of its parenthesis
    };

    void take_in_broken_line(const ForeignToken& token);
    void take_comment(const ForeignToken& token);
    void take_word(const ForeignToken& token);
    void take_result(const ForeignToken& token);
    void make(Move move);
    void open_variation(const ForeignToken& token);
    void close_variation(std::size_t offset);
    void break_line(RemarkKind kind, const ForeignToken& token);
    void finish_broken_line(std::size_t end);
    void finish();
    void comment(std::string_view text);
    void remark(RemarkKind kind, const ForeignToken& token);

    std::string_view m_text;
    RemarkList& m_remarks;
    StrictMovetext m_moves;
    std::vector<Line> m_lines;  // the main line and the open variations, innermost last
    std::string_view m_result;
    bool m_is_over = false;  // the main line has had its result
};

}  // namespace velmora
