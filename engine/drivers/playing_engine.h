#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "base/log_file.h"
#include "channel/command_sink.h"
#include "chess/moves/position.h"
#include "engine/drivers/base_engine.h"
#include "engine/drivers/stopped_searches.h"

namespace velmora {

/// What a driver makes of a line: what the referee gets.
struct DriverMessage {
    std::string text;  ///< in the words of UCI; an empty one ends the round
    std::optional<std::uint32_t> arrival = std::nullopt;  ///< arrival_stamp() of the line
    bool stopped = false;                                 ///< the move of a search that was stopped
};

/// What the drivers of both protocols share: the operations by which the referee drives an engine, the game
/// as the driver knows it, and the road of the engine's lines to the referee.
///
/// The referee's thread drives and the reader's thread reports, each at any moment. Every operation holds the
/// driver's mutex from its first to its last command, so that a user's click and an engine's answer cannot
/// cross in the middle.
///
/// Hence the shape: the public operations take the mutex and are not virtual, what a protocol does of its
/// own is a private do_...() that finds the mutex taken. No driver can forget the lock, and a driver may
/// call one of its own operations from another, though the mutex isn't recursive.
class PlayingEngine : public BaseEngine {
public:
    PlayingEngine();

    /// What of a line goes on to the referee, the display and the record.
    /// Some engines write variations of hundreds of moves, of which nobody could see the end; every copy on
    /// the way would carry them along.
    static constexpr std::size_t longest_posted = 8192;
    std::size_t longest_line() const override { return longest_posted; }

    void set_ponder(bool on);
    void new_game();
    void set_position(const ChessPosition& position);
    /// Lets the engine move in the position. Throws std::logic_error where the protocol has no way to say so
    /// because a search is running.
    void go();
    void go_infinite();
    void stop();
    /// Has the engine move at once when it thinks about its move; nothing else.
    void move_now();
    void offer_draw();
    /// The move of a text in the driver's position; the empty move when there is none.
    Move parse_move(const std::string& text) const;

    /// Sends each option, also one at its default and one without a value; only what is "<empty>" by default
    /// stays unsaid while it is, since engines take those signs for a file's name.
    void send_options();
    /// Gives an option that the engine announced another value. An engine at rest takes it with all others,
    /// at once. Engines need not understand an option while they search: then it waits for the end of the
    /// search, and goes out alone.
    /// UCI allows "setoption" between searches only, and many engines rebuild their tables on it.
    void set_option(const std::string& name, const std::string& value);

    /// Queues the line and works the queue off.
    void receive_line(ArrivedLine line) override;
    /// The lines of one move come in bursts, dozens of "info" ahead of a "bestmove". The referee is woken
    /// by what it has to answer, and finds the rest already there.
    Held held() const override { return m_held; }
    /// Has the referee take what it was given; holds no lock meanwhile, since the referee asks for the
    /// driver's next.
    void flush() override;

    void set_debug(bool on);
    void set_debug_stream(LogFile* stream);
    void set_manager(CommandSink* manager);
    void set_instance_id(std::uint64_t instance_id);

protected:
    // The operations above, under the driver's mutex.
    virtual void do_set_ponder(bool on) = 0;
    virtual void do_new_game() = 0;
    virtual void do_set_position(const ChessPosition& position) = 0;
    virtual void do_go() = 0;
    virtual void do_go_infinite() = 0;
    virtual void do_stop() = 0;
    virtual void do_move_now() = 0;
    virtual void do_offer_draw() {}

    /// Makes of one line of the engine what the referee gets.
    /// Every driver speaks the words of UCI here, so that the referee knows one protocol.
    virtual DriverMessage translate(ArrivedLine line) = 0;

    /// The command that gives the engine the option's value.
    virtual std::string option_command(const Option& option) const = 0;
    /// Ends a search that serves nobody's clock, so that the options need not wait for its end.
    virtual void make_way_for_options() {}
    /// What is to be done as soon as the engine rests.
    virtual void come_to_rest() { send_waiting_options(); }
    /// Sends what waits. A new search must not begin without it.
    void send_waiting_options();

    /// Several commands by one write.
    /// The engine then reads them at once and is woken once, which between two fast engines is a good part
    /// of a move.
    void send_together(std::initializer_list<std::string_view> commands);
    /// Writes "engine<id>" and the text, in one part or two, to the trace if that is wanted.
    void trace(std::string_view text, std::string_view more = {}) const;

    /// Whether the engine was told to write castling as the king taking the rook.
    /// In Chess960 "e1g1" may be a plain move of the king, so the rook that takes part is named instead.
    bool is_chess960() const;
    /// The move in the coordinate form that this engine reads.
    std::string coordinates(const Move& move) const;

    void start_search();

    ChessPosition m_position;
    StoppedSearches m_stopped;

private:
    void process_lines();
    void post(const DriverMessage& message);
    bool is_at_rest();
    void send_all_options(const std::string& name = {});
    void send_chosen_options(const std::function<bool(const Option&)>& wanted);

    std::set<std::string> m_waiting_options;  // names

    // Guarded by the driver's mutex; the pointers are borrowed, and null for nobody.
    CommandSink* m_manager = nullptr;
    std::uint64_t m_instance_id = 0;
    bool m_debug = false;
    LogFile* m_debug_stream = nullptr;

    Held m_held = Held::nothing;  // reader thread only
};

/// Plays the move of a text, "e2e4", on the position; false when it cannot be read or is not legal there.
bool play_legal(ChessPosition& position, const std::string& text);

}  // namespace velmora
