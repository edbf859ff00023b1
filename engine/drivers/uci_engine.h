#pragma once

#include <string>

#include "engine/drivers/playing_engine.h"

namespace velmora {

/// The driver of engines that speak UCI.
///
/// Turns go() into the text of the protocol, starts ponder searches by itself and passes every line of the
/// engine on to the referee. The handshake has been done before it exists.
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
    DriverMessage translate(ArrivedLine line) override;
    std::string option_command(const Option& option) const override;
    void make_way_for_options() override;
    void come_to_rest() override;

    /// A search that was stopped for an option's sake, to be taken up again.
    enum class Interrupted { nothing, analysis, pondering };

    enum class Overstepped { as_it_is, raised_to_1 };

    std::string position_text() const;
    std::string time_text(Overstepped overstepped) const;
    std::string go_text() const;
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
