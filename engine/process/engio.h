#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>

#include "base/log_file.h"
#include "engine/process/child_process.h"
#include "engine/process/line_splitter.h"
#include "engine/process/wakeup_pipe.h"

namespace velmora {

struct ArrivedLine;
class LineReceiver;

/// One engine program: its process, its two pipes and its log file.
///
/// The reader thread runs operator() and hands every line to the receiver; send() may be called from any
/// thread, the rest belongs to the owner's thread. Knows nothing of chess but the word "bestmove", whose
/// arrival it stamps.
///
/// Order of locks, outermost first: m_engine_mutex, the driver's mutex, the driver's queue mutex, the mutex
/// of the referee's queue. m_send_mutex and the log's mutex are taken below the driver's, and nothing is
/// taken under them; m_reader_mutex is taken alone. The owner's thread never takes m_engine_mutex while it
/// holds a driver's mutex.
///
/// The reader polls two descriptors, the engine's output and a pipe of our own: a blocking read couldn't be
/// ended while the engine is silent, and to close a descriptor under a read is a race for its number.
///
/// "Crashed" is any end that nobody asked for: the output closed, a write refused or not taken in time, a
/// flood without a line feed. What is to follow from it is decided above, where a game may be lost by it.
class Engio {
public:
    /// Bytes; a longer path is refused.
    static constexpr std::size_t longest_path = 999;
    /// Bytes ahead of the line end; a longer command is refused.
    static constexpr std::size_t longest_command = 32767;

    /// How long an engine may take to read what it is sent.
    /// A pipe holds 64 KiB, so whoever lets it fill has not read for many moves. The one who writes is the
    /// referee, and the other engine's game stands still meanwhile.
    static constexpr std::chrono::milliseconds default_patience{2000};

    /// Once `leaving` is stopped, no write waits for the engine.
    explicit Engio(std::stop_token leaving = {}, std::chrono::milliseconds patience = default_patience)
        : m_leaving(std::move(leaving)), m_patience(patience) {}
    /// Quits a process that is still there. REQUIRES: no reader thread has yet to enter operator().
    ~Engio();

    Engio(const Engio&) = delete;
    Engio& operator=(const Engio&) = delete;

    /// Starts the program; is_spawned() tells afterwards whether that worked. Throws std::logic_error when
    /// there is a process already.
    void spawn_engine(const std::string& path) { spawn_engine(ProgramCall{.path = path}); }
    void spawn_engine(const ProgramCall& call);

    /// Who gets the lines; null for nobody. Waits until a line that is being handed over is done with.
    /// Afterwards the receiver before may be deleted.
    void set_engine(LineReceiver* engine);

    /// The life of the reader thread: returns when the engine has ended or quit() was called.
    void operator()();

    /// Writes one line to the engine. Nothing without a living process. An engine that takes nothing for
    /// the patience counts as crashed.
    void send(std::string_view text) { send_lines({&text, 1}); }
    /// Several lines by one write, so that the engine is woken once.
    void send_lines(std::span<const std::string_view> lines);

    /// Whether the engine has read all that was sent. REQUIRES: called on the owner's thread.
    bool has_taken_input() const { return m_child.has_taken_input(); }

    /// Tells the engine to quit, waits for the reader to leave operator() and closes the pipes. The process
    /// is not waited for, unless it is owned. Nothing without a process.
    void quit();

    bool is_alive() const { return m_spawned && !m_crashed_flag && !m_quit_flag; }
    /// Stays until the next spawn or reset_flags(), so that it can be asked for after the end.
    bool has_crashed() const { return m_crashed_flag; }
    bool is_spawned() const { return m_spawned; }
    /// Clears all three flags and gives the old has_crashed(). REQUIRES: the reader has been joined.
    bool reset_flags();

    /// The number in the log's file name.
    void set_engine_id(std::uint32_t engine_id) { m_engine_id = engine_id; }
    std::uint32_t get_engine_id() const { return m_engine_id; }
    /// On opens the log "engine<id>.log" in the working directory for appending; off only stops writing to
    /// it.
    void set_logging(bool on);

private:
    bool enter_reader();
    void leave_reader();
    void read_until_end();
    bool wait_for_output();
    void flush_or_hold();
    int flush_when_due();
    void flush_receiver();
    void hand_over_lines();
    bool hand_over(ArrivedLine& line);
    void write_lines(std::span<const std::string_view> lines);
    void log(std::string_view text);

    const std::stop_token m_leaving;
    const std::chrono::milliseconds m_patience;

    // Atomic: read and set by the owner, the reader and whoever sends.
    std::atomic<bool> m_spawned = false;
    std::atomic<bool> m_quit_flag = false;
    std::atomic<bool> m_crashed_flag = false;
    std::atomic<bool> m_crlf = false;
    std::atomic<bool> m_log_enabled = false;

    std::mutex m_engine_mutex;         // held while a line is handed over
    LineReceiver* m_engine = nullptr;  // borrowed, may be null; guarded by m_engine_mutex

    std::mutex m_send_mutex;  // one line at a time into log and pipe; held also while the pipes are closed

    std::mutex m_reader_mutex;
    std::condition_variable m_reader_left;
    bool m_reading = false;  // guarded by m_reader_mutex

    // Set by spawn_engine() and closed by quit(), both while no reader runs.
    ChildProcess m_child;
    std::unique_ptr<WakeupPipe> m_wakeup;  // null without a process

    // Reader thread only.
    LineSplitter m_splitter;
    std::optional<std::chrono::steady_clock::time_point> m_flush_due;  // none while nothing is held
    LogFile m_log;
    std::uint32_t m_engine_id = 0;  // owner's thread only
};

}  // namespace velmora
