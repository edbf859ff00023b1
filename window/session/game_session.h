#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "chess/board/game_outcome.h"
#include "chess/board/move.h"
#include "chess/board/side.h"
#include "chess/moves/position.h"
#include "engine/time/level.h"
#include "game/game.h"
#include "openings/eco.h"
#include "window/session/changes.h"
#include "window/session/record_names.h"
#include "window/session/seats.h"

namespace velmora {

/// The one owner of the window's game: record, position, selection, players and time control.
///
/// Each operation says what happens to the game. Whatever leaves a node of the record first stores the text
/// of the comment box in it, then changes, and at its end gives one notice of all that has changed to those
/// who asked to be told; so nobody has to remember what to show. A setter without such a word gives none.
///
/// The position is that of the record's current node. There is one exception: in set-up mode the board loses
/// its castling rights, which the record keeps, until the record is stepped through or begun anew.
///
/// The referee has its own copy of the game; the lines of the channel keep the two in step. Main thread only.
///
/// The comment box is asked and not told: what is typed there is part of the game as soon as the game goes
/// on, and a signal at each key would change the record at each key.
///
/// Listeners are told when all is done, never in between, so that what they ask the session is consistent.
/// They must not change the game from within a notice.
class GameSession {
public:
    using Listener = std::function<void(Changes)>;

    /// @param comment_box  gives the text that stands in the box where the comment is edited
    explicit GameSession(std::function<std::string()> comment_box);

    /// Has `listener` told of every change from now on; it must outlive the last one.
    void on_change(Listener listener) { m_listeners.push_back(std::move(listener)); }
    /// Gives a notice. From outside: where something else has come to stand on the screen, or a part of it
    /// has just been opened, so that what the session holds is shown once more.
    void tell(Changes changes) const;

    // ---- The game as it stands

    const ChessPosition& position() const { return m_without_rights ? *m_without_rights : m_record; }
    Side side_to_move() const { return position().side_to_move(); }
    const Game& record() const { return m_record; }
    /// The record as PGN, to which record().current_text_range() then refers.
    std::string pgn() { return m_record.pgn(); }
    std::optional<Square> selected() const { return m_selected; }

    bool can_go_back() const { return m_record.current() != 0; }
    bool can_go_forward() const { return next_move() != nullptr; }
    /// The move that led to the position shown, empty when it isn't known.
    Move last_move() const { return position().last_move(); }
    /// The same in words, "White: Nf3"; empty at the start of the game.
    std::string last_move_text() const;
    /// The move of the record that comes next, "12. Nf3" or "12... Nf6"; "The move" where there is none.
    std::string next_move_text() const;
    /// The EPD code of the position, with the operations of the line it was loaded from.
    std::string epd_text() const;

    // ---- A game begins or is brought from elsewhere

    /// The start position and an empty record that has the present names.
    void new_game() { begin_game(m_names); }
    /// The same, with the default texts for event and site.
    void new_game_without_names();
    /// Takes `fen` as the start of the record, whose tags stay. REQUIRES: a readable FEN.
    void start_from(const std::string& fen);
    /// A record with the present names that starts from `fen`; `line` is what stood in the file, whose
    /// operations become tags. REQUIRES: a readable FEN.
    void load_position(const std::string& line, const std::string& fen);
    /// Stands at the start of another record.
    void load(Game record);

    // ---- A game is played

    /// Plays a legal move.
    void play(const Move& move);
    /// Plays a legal move of an engine, whose side it takes and whose words become the comment.
    /// The clocks run on: an engine's move is a move of the game whatever the person was looking at.
    void play_for_engine(const Move& move);
    /// Notes search output, without its first word, for the comment of the engine's next move.
    void note_search(Side side, std::string_view line);
    /// What was noted for this side becomes the current comment, unless it is nothing.
    void attach_search(Side side);
    void forget_search() { m_annotations = {}; }
    /// What the last move took, as the referee writes it.
    void append_move_time(std::string_view milliseconds);
    /// Takes back the last move, if one has been played since the position was set up or stepped to.
    /// Not beyond that: what lies before was loaded or stepped to, not played.
    void take_back();
    /// Goes so many moves back, as far as there are any, to play on from there: what was played stays in the
    /// record, as a variation as soon as another move is played in its place.
    void retract(int plies);
    /// Ends the record with a result, the words in braces behind it, and the tags of a finished game.
    /// The referee knows why a game has ended, the session knows the record: words and tags come together
    /// here.
    /// @param termination  the value of the tag of that name; none for an empty one
    void end_game(const GameOutcome& outcome, const std::string& termination = {});

    // ---- The person looks and writes

    /// Moves the record's current node and gives the FEN there, empty when there is nowhere to go.
    using Step = std::function<std::string(Game&)>;
    /// Goes elsewhere in the record. Passes on what the step throws at a move that can't be played, after a
    /// notice if it has come to another node.
    void step(const Step& step);
    /// Changes the record's tree; false when there was nothing to change.
    using Edit = std::function<bool(Game&)>;
    /// Changes the record, with one notice when it has changed: of the position, too, when the record stands
    /// at another node since. Castling rights that the set-up took off stay off unless it does.
    bool edit(const Edit& edit);
    void select(std::optional<Square> square);
    /// The person has finished with the comment box.
    void apply_comment();
    /// The record as a file gets it, with what stands in the comment box.
    /// What is typed and not yet applied would else be missing in the file, though it stands on the screen.
    std::string text_to_save();
    /// Takes the castling rights off the board, which is to be set up.
    /// A king that is moved in the set-up and back would else be found able to castle.
    void clear_rights();

    // ---- Who plays, where, and how long

    const Seats& seats() const { return m_seats; }
    bool engine_to_move() const { return m_seats.engine_plays(side_to_move()); }
    void seat(const Seats& seats);

    const BySide<Player>& players() const { return m_names.players; }
    void set_player(Side side, const std::string& name) { m_names.players[side] = {name, ""}; }
    void set_elo(Side side, std::string_view elo) { m_names.players[side].elo = elo; }
    void set_event(std::string_view event);
    void set_site(std::string_view site);
    void set_round(std::string_view round);

    const Level& level() const { return m_level; }
    void set_level(const Level& level);

    /// Whether a move on the board leaves the clocks alone.
    bool clocks_held() const { return m_clocks_held; }
    void hold_clocks(bool held) { m_clocks_held = held; }

private:
    // These change and tell nobody.
    void store_comment();
    void begin_game(const RecordNames& names);
    void begin_at(const std::string& fen);
    void add_move(const Move& move);
    void attach(Side side);
    /// The board has come from the record, not by a move on it.
    void follow_record();

    const MoveSectionElement* next_move() const;

    const std::function<std::string()> m_comment_box;
    std::vector<Listener> m_listeners;

    Game m_record;
    std::optional<ChessPosition> m_without_rights;  // what the board has instead of the record's position
    std::size_t m_played = 0;                       // moves on the board since it was set up or stepped to
    std::set<std::int32_t> m_retracted;             // nodes from which another move is the game's own
    std::optional<Square> m_selected;               // waits for its destination
    std::string m_loaded_line;                      // the position line loaded last
    Eco m_openings;

    Seats m_seats = Seats::of_people();
    RecordNames m_names;
    BySide<std::string>
        m_annotations;  // what the engine playing that side will have said about its next move
    Level m_level;
    bool m_clocks_held = false;
};

}  // namespace velmora
