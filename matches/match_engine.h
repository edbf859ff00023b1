#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <stop_token>
#include <string>
#include <thread>

#include "channel/command_sink.h"
#include "chess/board/side.h"
#include "chess/moves/position.h"
#include "engine/drivers/engine_record.h"
#include "engine/process/engio.h"
#include "engine/process/line_receiver.h"
#include "matches/engine_queue.h"
#include "matches/match_settings.h"

namespace velmora {

class BaseEngine;
class PlayingEngine;

/// One engine of a match: its process and its driver, kept from game to game.
///
/// It stands between the process and the driver: each line is stamped by the steady clock where it is read,
/// and what the driver makes of it goes on the engine's queue at once. The referee's way of gathering lines
/// for a window would cost every move up to five milliseconds. The drivers are those of the referee.
///
/// All but the reader's part belongs to the thread of the game, which must start and end it, since an owned
/// process dies with the thread that started it.
class MatchEngine : private LineReceiver, private CommandSink {
public:
    /// `number` is that of the log "engine<number>.log" where `logs`.
    MatchEngine(MatchEngineSetup setup, std::uint32_t number, bool logs, std::stop_token leaving);
    /// Ends the process and all that it has started.
    ~MatchEngine() override;

    MatchEngine(const MatchEngine&) = delete;
    MatchEngine& operator=(const MatchEngine&) = delete;

    /// Starts the program and greets it. False when it can't be started or plays in no protocol; fault()
    /// tells why.
    bool start();
    const std::string& fault() const { return m_fault; }
    bool is_alive() const { return m_player != nullptr && m_engio.is_alive(); }

    /// What the record calls it.
    std::string name() const;
    const MatchEngineSetup& setup() const { return m_setup; }
    /// Whether the next game needs another process.
    bool wants_restart() const;

    /// Begins a game and waits until the engine is ready for it; false when it never is.
    bool begin_game(Side side, bool chess960);

    /// Lets the engine move; gives the moment from which it is charged.
    std::chrono::steady_clock::time_point go(const ChessPosition& position, std::chrono::nanoseconds own,
                                             std::chrono::nanoseconds other);

    /// Ends a search and waits for its move; false when none comes.
    bool stop();

    /// Ends the process; the next game needs start().
    void end() { end_process(); }
    /// Counts an answer that came with a search.
    void take_answer() { ++m_answers; }

    EngineQueue& queue() { return m_queue; }

private:
    void receive_line(ArrivedLine line) override;
    std::size_t longest_line() const override;
    void put_command(const std::string& line) override;
    void start_process();
    void end_process();
    void give_options();
    bool wait_ready();

    const MatchEngineSetup m_setup;
    const std::uint32_t m_number;
    const bool m_logs;
    const std::stop_token m_leaving;
    std::string m_fault;
    std::uint64_t m_questions = 0;  // "isready" and "ping" that were sent
    std::uint64_t m_answers = 0;

    Engio m_engio;
    EngineRecord m_record;               // guarded by the driver's mutex
    std::unique_ptr<BaseEngine> m_base;  // probe or player; changes only while lines go nowhere
    PlayingEngine* m_player = nullptr;   // *m_base where that plays
    EngineQueue m_queue;
    std::chrono::steady_clock::time_point m_arrival{};  // reader thread only
    std::thread m_reader;
};

}  // namespace velmora
