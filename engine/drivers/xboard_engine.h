#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engine/drivers/playing_engine.h"

namespace velmora {

/// The driver of engines that speak version 2 of the xboard protocol.
///
/// The engine keeps a game of its own, so each go() works out how that differs from the real game and
/// brings the two together. What comes back is put into the words of UCI: the referee sees "bestmove" and
/// "info depth" lines only.
///
/// Nothing tells at once whether the engine has taken a command, so m_previous_position is what it must have
/// made of all that it was sent. It is certain but for one case: a stopped engine makes a move of its own
/// choice first, and until that has come the only safe way is to send the whole position.
///
/// The words that matter here: "force" has the engine follow moves without playing, "go" has it play the
/// side to move and from then on answer every move, "new" sets up the start with the engine playing Black,
/// "?" has it move at once, "easy" and "hard" switch pondering off and on, "post" has it show its thinking.
/// What goes beyond that an engine announces as a feature, and is only used then ("setboard", "usermove",
/// "san", "time", "reuse").
class XboardEngine : public PlayingEngine {
public:
    XboardEngine();

    Protocol protocol() const override { return Protocol::xboard_v2; }

private:
    void do_set_ponder(bool on) override;
    void do_new_game() override;
    void do_set_position(const ChessPosition& position) override;
    void do_go() override;
    void do_go_infinite() override;
    void do_stop() override;
    void do_move_now() override;
    void do_offer_draw() override { send("draw"); }
    DriverMessage translate(ArrivedLine line) override;
    std::string option_command(const Option& option) const override;

    /// Whether the engine answers a move by itself. Told to go when it does, it would play both sides. A
    /// fresh process that was never sent "new" may or may not.
    enum class Play { unknown, force_mode, by_itself };

    void send_new();
    void send_new_if_game_over();
    void send_force();
    void send_go();
    void send_clocks();
    void send_moves_from(ChessPosition scratch);
    /// The last resort for a position that no sequence of moves leads to, for engines without "setboard".
    void send_edit_commands();
    void bring_position_to_engine();
    void send_last_move();
    void send_whole_position();
    void engine_was_set_up();
    std::string move_text(const ChessPosition& before, const Move& move) const;

    DriverMessage take_move(std::string_view word);
    void follow_stopped_move(std::string_view word, std::uint32_t game);
    std::optional<Move> read_move(const ChessPosition& position, std::string_view word) const;

    ChessPosition m_previous_position;  // the game as the engine knows it
    bool m_previous_is_certain = true;  // false while the engine owes the move of a stopped search
    std::uint32_t m_game = 0;           // counts how often the engine was given another game
    bool m_result_said = false;         // the engine has announced that its game is over
    bool m_search_stopped = false;      // the last search was told to stop
    Level m_sent_level;                 // the time control that the engine has
    /// Never taken from what the engine says: there is no answer to "force" or "go".
    Play m_play = Play::unknown;
};

}  // namespace velmora
