#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "chess/board/move.h"
#include "chess/moves/position.h"
#include "game/game_tags.h"
#include "game/game_tree.h"
#include "game/move_section.h"
#include "game/pgn_tokenizer.h"
#include "game/tree_editor.h"

namespace velmora {

/// One game: a position, its tags, the tree of all that was played or loaded, and the node at which it
/// stands.
///
/// The game IS the position of its current node: stepping through the tree makes and unmakes moves on the
/// object itself. Moves are kept as SAN text and become moves when they are stepped to; a game with illegal
/// text loads and shows, and fails there. Belongs to one thread.
///
/// Inheritance says just that: whoever needs a position, such as a notation or a book, takes a game. SAN
/// is kept because a loaded game must come out as it went in, faulty text included, and because most games
/// of a file are never stepped through, so that looking for legal moves would be wasted on them.
///
/// Offsets into the text are bytes of what pgn() gave last: the view that shows this text finds the move
/// under the pointer by them, and the other way round.
class Game : public ChessPosition {
public:
    Game() { reset(); }

    /// An unknown game at its start, nothing played.
    void reset();

    /// Reads the text of one game, tags and moves, and stands at its root. Faulty moves are kept as they are.
    /// Throws std::logic_error for a variation ahead of the first move or nested too deep; the moves are lost
    /// then.
    void parse_pgn(std::string_view text);

    const GameTags& tags() const { return m_tags; }
    std::string tag(std::string_view name) const { return m_tags.get(name); }
    /// Sets a tag. "FEN" also sets the position and the side that starts, but not the number of the first
    /// move: a game that is prepared so counts from 1.
    void set_tag(std::string_view name, std::string_view value);

    /// Gives the game these tags in place of the ones it has, but for those of its start ("FEN", "SetUp"),
    /// which stay. Names and values are made such that a file can hold them; a name without letters and
    /// digits is left out. Where the result has changed, the end of the main line says so, too. False when
    /// all stay as they are.
    bool replace_tags(const TagList& tags);

    /// The tag "Result".
    std::string result() const { return m_tags.get("Result"); }
    /// White's name, a blank, Black's name.
    std::string title() const;

    const GameTree& tree() const { return m_tree; }
    /// The id of the node at which the game stands, 0 at the start.
    std::int32_t current() const { return m_current; }
    /// Whether nothing was added yet.
    bool is_empty() const { return m_tree.next_id() == 1; }

    /// Plays a legal move: along the tree where it is known there, else as a new last child. After the end of
    /// the game it goes on: the result marker goes and "Result" becomes "*".
    ///
    /// So a person who plays the same move again walks along the game instead of making a variation of
    /// equal moves.
    void add_move(const Move& move);

    /// Notes a result at the current node, which the marker then is. A second one for the same position
    /// replaces the first.
    void add_end_game(std::string_view text);

    /// Sets "Result" to the result word that `text` contains, "*" without one, and notes the whole text as
    /// the end of the game if there is one. `text` becomes the word.
    void set_result(std::string& text);

    /// The comment of the current node; at a result, of the move ahead of it.
    const std::string& comment() const;
    void set_comment(std::string_view text);
    void append_comment(std::string_view text);
    /// The comment ahead of the first move.
    void set_root_comment(std::string_view text);

    /// Removes "[%...]" annotations from all comments.
    void strip_annotations();

    /// Go to the start, a move back, a move on along the main line of the current node, or to its end; give
    /// the FEN there, empty when there was nowhere to go. forward() and to_end() throw std::logic_error at a
    /// move that can't be read or isn't legal, and stay ahead of it.
    std::string to_start();
    std::string back();
    std::string forward();
    std::string to_end();

    /// Plays a move that the tree has under the current node, by its SAN text; else gives an empty string.
    /// Unlike add_move() it never changes the game.
    std::string follow(const Move& move);

    /// The moves under the current node in the order of the children, results left out. Throws
    /// std::logic_error when one of them can't be read.
    std::vector<Move> continuations() const;

    /// Goes to a node of the tree, as far as the moves up to it can be made, and gives the FEN there. A
    /// result stands at the position of its parent. REQUIRES: tree().has_node(id).
    std::string go_to(std::int32_t id);

    // The tree is changed beyond the current node. Each gives false where there is nothing to do. The game
    // stays where it stands; when that node goes, it first goes to the one ahead of what is deleted.

    /// Puts the innermost variation that a node is part of ahead of what it is an alternative to.
    bool promote(std::int32_t id);
    /// Puts the current move ahead of its alternatives. The person's undo_edit() doesn't ask for it: it goes
    /// with the change before it.
    void lead() { m_editor.lead(m_tree, m_current); }
    /// Makes a node part of the main line.
    bool make_main_line(std::int32_t id);
    /// Deletes a move and all that follows it, in variations too.
    bool delete_from(std::int32_t id);
    /// Deletes the innermost variation that a node is part of, whole.
    bool delete_variation(std::int32_t id);
    bool can_undo_edit() const { return m_editor.can_undo(); }
    /// Takes back the last of these four, until another game is begun or loaded. When one stood in what comes
    /// back, the game goes there again.
    bool undo_edit();

    /// The comment of any node; on the root that ahead of the first move.
    bool set_comment(std::int32_t id, std::string_view text);

    /// Gives a move its symbol, a numeric glyph of the PGN standard (8.2.4) such as "$1", or takes it away
    /// with an empty text.
    bool set_symbol(std::int32_t id, std::string_view glyph);

    /// Adds a line of moves from the current position, up to the first that isn't legal, and gives the node
    /// that it leads to; the game stays where it stands. Moves that the tree has are found and not added
    /// again. At the end of the game it goes on, as by add_move().
    std::int32_t add_line(std::span<const Move> moves);

    /// The whole game as PGN: tags, an empty line, the moves, an empty line.
    std::string pgn();
    /// The tags as PGN and an empty line.
    std::string tags_text() const { return m_tags.print() + "\n"; }

    /// Begin and end of the current node's text in what pgn() gave last, in bytes.
    std::pair<std::uint64_t, std::uint64_t> current_text_range() const;

    /// Goes to the node whose text stands at an offset of what pgn() gave last, as far as the moves up to it
    /// can be made, and gives the FEN there. Stays where there is no move.
    std::string goto_text_offset(std::uint64_t offset);

private:
    void read_tags(std::span<const MoveToken> tokens);
    std::int32_t end_marker() const;
    void remove_end_marker();
    void end_main_line(const std::string& result);
    void leave_end_game();
    MoveSectionElement& commented_node();
    std::int32_t child_of(std::int32_t id, std::string_view san) const;
    Move legal_move(const std::string& san) const;
    void stand_at_start();
    void step_to(std::int32_t id, const Move& move);
    bool step_forward();
    std::vector<std::int32_t> line_to(std::int32_t id) const;
    void replay(const std::vector<std::int32_t>& line);
    bool remove(std::int32_t id);
    /// Bytes of pgn() ahead of the movetext.
    std::uint64_t movetext_begin() const { return m_tags.printed_size() + 1; }

    GameTags m_tags;
    GameTree m_tree;
    std::int32_t m_current = 0;
    TreeEditor m_editor;
    MoveSection m_section;     // of the last load, kept for its memory
    PgnTokenizer m_tokenizer;  // likewise
};

}  // namespace velmora
