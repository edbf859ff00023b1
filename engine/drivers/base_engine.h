#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <string_view>
#include <utility>

#include "engine/drivers/engine_record.h"
#include "engine/process/line_receiver.h"

namespace velmora {

class Engio;

/// What every engine needs, whatever its protocol and whether it plays or is still being probed: the queue of
/// lines that came from it, the way back to it, and its record.
///
/// receive_line() runs on the engine's reader thread, all else on the referee's unless it says otherwise.
///
/// The queue stands between the two threads because they wait for different things: the probe looks into it
/// now and then, a driver that plays works it off at once. Either way the reader doesn't wait for the next
/// look, and the pipe of an engine that talks much doesn't run full.
///
/// The record isn't the driver's own: GuiEngine keeps it, so that it survives a change of drivers.
class BaseEngine : public LineReceiver {
public:
    BaseEngine() = default;
    BaseEngine(const BaseEngine&) = delete;
    BaseEngine& operator=(const BaseEngine&) = delete;

    /// Lines that the queue keeps at least; above that the oldest thinking output goes.
    static constexpr std::size_t kept_lines = 20;
    /// Lines that the queue keeps at most, more than a handshake ever looks at; what comes on top is dropped.
    static constexpr std::size_t most_lines = 400;

    virtual Protocol protocol() const = 0;
    bool is_uci() const { return protocol() == Protocol::uci; }

    /// Clears the queue and stores whom the driver speaks for; both must outlive it.
    /// Not in the constructor, since a driver is made before it is known whether its process starts.
    void attach(std::uint32_t id, EngineRecord* record, Engio* engio);

    /// Queues the line, for whoever asks for the next one.
    void receive_line(ArrivedLine line) override { queue_line(std::move(line)); }
    /// The oldest line, an empty one when there is none. Any thread.
    ArrivedLine next_line();
    void clear_queue();

    /// Takes over identity, handicap and the values of the options that the engine announced. It isn't told
    /// of them: see PlayingEngine::send_options().
    /// Protocol, features and the options' limits stay: these are what the running process said of itself,
    /// and what comes from the list of installed engines may be of an older version of the program.
    void set_variables(const EngineVariables& wanted);

    bool is_alive() const;
    bool has_crashed() const;

    /// Calls `use` with the record while the driver's mutex is held. REQUIRES: attached.
    template <class Use>
    auto with_record(Use use) const {
        const std::lock_guard lock(m_mutex);
        return use(*m_record);
    }

protected:
    /// Queues the line; whether it is time to work the queue off. A "readyok" waits for the line after it.
    /// Every search is asked for together with an "isready", whose answer nobody acts on: to wake anyone
    /// for it would cost each move a round for nothing.
    bool queue_line(ArrivedLine line);

    // Under the driver's mutex.
    std::uint32_t engine_id() const { return m_engine_id; }
    EngineVariables& variables() { return m_record->variables; }
    const EngineVariables& variables() const { return m_record->variables; }
    PlayState& state() { return m_record->state; }
    const PlayState& state() const { return m_record->state; }
    Engio& engio() { return *m_engio; }
    void send(std::string_view command);

    /// The driver's mutex, which guards the record. Taken after the Engio's engine mutex, before the queue's
    /// and the mutex of the referee's queue; never while a lock of those two is held.
    mutable std::mutex m_mutex;

private:
    // Guarded by m_mutex, written by attach() alone.
    std::uint32_t m_engine_id = 0;
    EngineRecord* m_record = nullptr;
    Engio* m_engio = nullptr;

    std::mutex m_queue_mutex;
    std::deque<ArrivedLine> m_queue;  // guarded by m_queue_mutex, oldest first
};

}  // namespace velmora
