#pragma once

#include <string>

#include "engine/drivers/playing_engine.h"

namespace velmora {

/// The driver of engines that speak UCI.
///
/// Turns go() into the text of the protocol, starts ponder searches by itself and passes every line of the
/// engine on to the referee. The handshake has been done before it exists.
///
/// A UCI engine keeps nothing between two searches, so every search begins with the whole game. The engine is
/// idle as soon as it was told to stop, although its move is still to come: a next search need not wait for
/// that, since StoppedSearches tells the late move from the one that was asked for.
///
/// Pondering is the driver's own affair. The referee only knows go(): whether that becomes a "ponderhit" or
/// a "stop" and a new search depends on a guess of the engine's that stands in the "bestmove" line and
/// nowhere else. And the driver sits where that line arrives, so that the engine loses no time between its
/// move and its search on the opponent's time.
class UciEngine : public PlayingEngine {
public:
    Protocol protocol() const override { return Protocol::uci; }

private:
    void do_set_ponder(bool on) override { m_ponder_enabled = on; }
    void do_new_game() override;
    void do_set_position(const ChessPosition& position) override;
    void do_go() override;
    void do_go_infinite() override;
    void do_stop() override;
    void do_move_now() override;
    DriverMessage translate(ArrivedLine line) override;
    std::string option_command(const Option& option) const override;
    void make_way_for_options() override;
    void come_to_rest() override;

    /// A search that was stopped for an option's sake, to be taken up again.
    enum class Interrupted { nothing, analysis, pondering };

    /// How a clock that has run out is told: as one millisecond where the engine is to move, as it is where
    /// it ponders, since nothing limits that search yet.
    enum class Overstepped { as_it_is, raised_to_1 };

    std::string position_text() const;
    /// Whole milliseconds, "go wtime W btime B winc I binc I", with "movestogo" where the level has
    /// sessions.
    std::string time_text(Overstepped overstepped) const;
    std::string go_text() const;
    /// REQUIRES: the engine ponders; m_position ends with the opponent's move.
    bool ponder_hit();
    void stop_search();
    void take_bestmove(const ArrivedLine& line);
    void ponder_on(const std::string& move, const std::string& reply);
    void goponder();

    bool m_ponder_enabled = false;
    std::string m_ponder_move;  // the reply that the engine ponders on; empty if none
    bool m_analyses = false;    // the last search, unless it pondered, was one without an end
    Interrupted m_interrupted = Interrupted::nothing;
};

}  // namespace velmora
