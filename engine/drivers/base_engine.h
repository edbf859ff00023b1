#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <initializer_list>
#include <mutex>
#include <string>
#include <string_view>

#include "base/log_file.h"
#include "channel/command_sink.h"
#include "chess/board/move.h"
#include "engine/process/line_receiver.h"
#include "engine/store/engine_variables.h"

namespace velmora {

class ChessPosition;
class Engio;

/// What the program knows of every engine, whatever its protocol: the queue of lines that came from it, and
/// the operations by which the referee drives it. The drivers fill in the operations.
///
/// receive_line() and process_lines() run on the engine's reader thread, all else on the referee's. Every
/// other operation holds the driver's mutex from its first to its last command, so that a user's click and
/// an engine's answer cannot cross in the middle; the record is guarded by the same mutex.
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
    virtual bool is_uci() const = 0;
    /// The handshake; only the probe has one.
    virtual void load(std::uint32_t /*id*/, const std::string& /*filename*/, Protocol /*protocol*/,
                      bool /*debug*/) {}
    /// Works off the queue until it is empty or an empty line is met.
    virtual void process_lines() = 0;

    void set_ponder(bool on);
    void new_game();
    void set_position(const ChessPosition& position);
    /// Lets the engine move in the position. Throws std::logic_error where the protocol has no way to say so
    /// because a search is running.
    void go();
    void go_infinite();
    void stop();
    /// The move of a text in the driver's position; the empty move when there is none.
    Move parse_move(const std::string& text) const;

    /// Queues the line and works the queue off; a "readyok" waits for the line after it.
    void receive_line(std::string line) override;
    Held held() const override { return m_held; }
    /// Has the referee take what it was given; holds no lock meanwhile, since the referee asks for the
    /// driver's next.
    void flush() override;
    /// The oldest line, empty when there is none.
    std::string next_line();
    void clear_queue();

    /// Clears the queue and stores whom the driver speaks for; both must outlive it. The engine counts as
    /// idle.
    void attach(std::uint32_t id, EngineVariables* variables, Engio* engio);

    /// Takes over identity and the values of the options that the engine announced, and sends all options.
    void set_variables(const EngineVariables& variables);
    /// Stores the options and sends each of them, also one at its default and one without a value; only what
    /// is "<empty>" by default stays unsaid while it is, since engines take those signs for a file's name.
    void send_options(const Options& options);
    /// Gives an option that the engine announced another value, and has the engine take it.
    void set_option(const std::string& name, const std::string& value);

    bool is_alive() const;
    bool has_crashed() const;
    std::uint32_t engine_id() const { return m_engine_id; }

    void set_debug(bool on);
    void set_debug_stream(LogFile* stream);
    void set_manager(CommandSink* manager);
    void set_instance_id(std::uint64_t instance_id);

    /// Calls `use` with the record while the driver's mutex is held. REQUIRES: attached.
    template <class Use>
    auto with_variables(Use use) const {
        const std::lock_guard lock(m_mutex);
        return use(*m_variables);
    }

protected:
    // The operations above without the lock.
    virtual void do_set_ponder(bool /*on*/) {}
    virtual void do_new_game() {}
    virtual void do_set_position(const ChessPosition& /*position*/) {}
    virtual void do_go() {}
    virtual void do_go_infinite() {}
    virtual void do_stop() {}
    virtual Move do_parse_move(const std::string& /*text*/) const { return Move(); }
    /// Sends the option of that name, whose value has just been stored.
    virtual void do_set_option(const std::string& name) { send_all_options(name); }

    // For the drivers, under the driver's mutex.
    EngineVariables& variables() { return *m_variables; }
    const EngineVariables& variables() const { return *m_variables; }
    Engio& engio() { return *m_engio; }
    void send(std::string_view command);
    /// Sends all options as send_options() does, and that of the name in any case.
    void send_all_options(const std::string& name = {});
    /// Sends the options that are `wanted`.
    void send_chosen_options(const std::function<bool(const Option&)>& wanted);
    /// Several commands by one write.
    void send_together(std::initializer_list<std::string_view> commands);
    /// Hands a line to the referee, behind the engine's number and its instance id. A line of which the
    /// referee takes no notice goes out for its log alone, while that is kept.
    void post(std::string_view line);
    /// Writes "engine<id>" and the text, in one part or two, to the trace if that is wanted.
    void trace(std::string_view text, std::string_view more = {}) const;

    /// The driver's mutex. Taken after the Engio's engine mutex, before the queue's and the mutex of the
    /// referee's queue; never while a lock of those two is held.
    mutable std::mutex m_mutex;

private:
    std::string option_command(const Option& option) const;

    // Guarded by m_mutex; attach() alone writes the first three.
    std::uint32_t m_engine_id = 0;
    EngineVariables* m_variables = nullptr;
    Engio* m_engio = nullptr;
    CommandSink* m_manager = nullptr;
    std::uint64_t m_instance_id = 0;
    bool m_debug = false;
    LogFile* m_debug_stream = nullptr;

    Held m_held = Held::nothing;  // reader thread only

    std::mutex m_queue_mutex;
    std::deque<std::string> m_queue;  // guarded by m_queue_mutex, oldest first
};

}  // namespace velmora
