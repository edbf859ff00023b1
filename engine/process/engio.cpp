#include "engine/process/engio.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <exception>
#include <iostream>
#include <numeric>
#include <poll.h>
#include <stdexcept>
#include <unistd.h>

#include "base/text.h"
#include "engine/process/line_receiver.h"
#include "engine/time/wall_clock.h"

namespace velmora {

namespace {

constexpr std::size_t read_size = 32768;

/// How often a write that waits looks whether it has to go on waiting.
constexpr std::chrono::milliseconds stop_interval(50);

/// How long a line may wait for those behind it, so that whoever takes them is woken once. Well below what
/// the eye notices.
constexpr std::chrono::milliseconds longest_hold(5);

/// The line as it stands in the log.
std::string with_stamp(const ArrivedLine& line) {
    return line.arrival ? line.text + " TS=" + std::to_string(*line.arrival) : line.text;
}

/// Writes all bytes to a pipe that does not block, waiting for at most `wait` in all until it takes them, and
/// no longer than until `leaving` is stopped.
bool write_all(int fd, std::string_view bytes, std::chrono::milliseconds wait,
               const std::stop_token& leaving) {
    const auto deadline = std::chrono::steady_clock::now() + wait;
    while (!bytes.empty()) {
        const auto count = ::write(fd, bytes.data(), bytes.size());
        if (count > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(count));
        } else if (count < 0 && errno == EAGAIN) {
            const auto left =
                std::chrono::ceil<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
            if (left.count() <= 0 || leaving.stop_requested()) return false;
            pollfd writable{fd, POLLOUT, 0};
            ::poll(&writable, 1, static_cast<int>(std::min(left, stop_interval).count()));
        } else if (count == 0 || errno != EINTR) {
            return false;
        }
    }
    return true;
}

}  // namespace

Engio::~Engio() { quit(); }

void Engio::log(std::string_view text) {
    if (m_log_enabled) m_log.write(wall_log_stamp().append(text));
}

void Engio::set_logging(bool on) {
    m_log_enabled = on;
    if (on) m_log.open("engine" + std::to_string(m_engine_id) + ".log", LogFile::Opening::append);
}

void Engio::spawn_engine(const ProgramCall& call) {
    const std::string& path = call.path;
    m_crashed_flag = false;
    m_quit_flag = false;
    log("   Engio::spawn_engine(" + path + ")");
    if (m_spawned) {
        throw std::logic_error(
            "Engio::spawn_engine() trying to spawn an engine while a spawned engine already exists");
    }
    if (path.size() > longest_path) {
        log("   Engio::spawn_engine() filename too long   size=" + std::to_string(path.size()));
        return;
    }
    // A program of that name reads its lines as its own system ends them. Others show by their first line.
    m_crlf = path.size() > 4 && path.ends_with(".exe");
    log(std::string("   Engio::spawn_engine() carriage return ") + (m_crlf ? "true" : "false"));
    try {
        m_wakeup = std::make_unique<WakeupPipe>();
        m_child.spawn(call);
    } catch (const std::runtime_error& error) {
        m_wakeup.reset();
        log("   Engio::spawn_engine(" + path + ")  FAILED");
        log(std::string("   ") + error.what());
        return;
    }
    m_splitter.clear();
    m_spawned = true;
}

void Engio::set_engine(LineReceiver* engine) {
    const std::lock_guard lock(m_engine_mutex);
    m_engine = engine;
}

bool Engio::reset_flags() {
    m_quit_flag = false;
    m_spawned = false;
    return m_crashed_flag.exchange(false);
}

void Engio::operator()() {
    if (!enter_reader()) return;
    read_until_end();
    if (m_flush_due) flush_receiver();
    leave_reader();
}

bool Engio::enter_reader() {
    const std::lock_guard lock(m_reader_mutex);
    m_reading = is_alive();
    return m_reading;
}

/// quit() may be waiting for it, on the owner's thread.
void Engio::leave_reader() {
    const std::lock_guard lock(m_reader_mutex);
    m_reading = false;
    m_reader_left.notify_all();
}

/// The flags are looked at again behind the read: a quit that came meanwhile makes what was read nobody's
/// business.
void Engio::read_until_end() {
    std::array<char, read_size> buffer;
    while (wait_for_output()) {
        const auto count = ::read(m_child.stdout_fd(), buffer.data(), buffer.size());
        if (m_quit_flag || m_crashed_flag) return;
        if (count < 0 && errno == EINTR) continue;
        if (count > 0) {
            m_splitter.append({buffer.data(), static_cast<std::size_t>(count)});
        } else {
            m_splitter.finish();
        }
        hand_over_lines();
        flush_or_hold();
        if (count <= 0 || m_splitter.overflown()) {
            log("   Engio::operator()  engine crashed   read bytes=" + std::to_string(count));
            m_crashed_flag = true;
            return;
        }
    }
}

/// Waits until the engine has written or closed its output; false when the reader has to leave.
bool Engio::wait_for_output() {
    while (!m_quit_flag && !m_crashed_flag) {
        std::array<pollfd, 2> sources{{{m_child.stdout_fd(), POLLIN, 0}, {m_wakeup->read_fd(), POLLIN, 0}}};
        if (::poll(sources.data(), sources.size(), flush_when_due()) > 0 && sources[0].revents != 0)
            return true;
    }
    return false;
}

/// A line that waits is flushed by the first urgent one behind it or by the clock, whichever comes first;
/// more lines that can wait don't put it off.
void Engio::flush_or_hold() {
    using Held = LineReceiver::Held;
    Held held = Held::nothing;
    {
        const std::lock_guard lock(m_engine_mutex);
        if (m_engine != nullptr) held = m_engine->held();
    }
    if (held == Held::urgent) {
        flush_receiver();
    } else if (held == Held::nothing) {
        m_flush_due.reset();
    } else if (!m_flush_due) {
        m_flush_due = std::chrono::steady_clock::now() + longest_hold;
    }
}

/// Gives the milliseconds until held lines are due, -1 when none are held.
int Engio::flush_when_due() {
    if (!m_flush_due) return -1;
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(*m_flush_due - std::chrono::steady_clock::now());
    if (left.count() > 0) return static_cast<int>(left.count());
    flush_receiver();
    return -1;
}

void Engio::flush_receiver() {
    m_flush_due.reset();
    const std::lock_guard lock(m_engine_mutex);
    if (m_engine != nullptr) m_engine->flush();
}

void Engio::hand_over_lines() {
    std::size_t count = 0;
    while (auto next = m_splitter.next()) {
        if (next->carriage_return) m_crlf = true;
        ArrivedLine line{std::move(next->text)};
        if (!hand_over(line)) {
            m_splitter.drop_due();
            return;
        }
        ++count;
        if (!m_log_enabled) continue;
        log("   engine -> " + with_stamp(line) +
            (count > 1 ? "   {cnt=" + std::to_string(count) + "} " : ""));
    }
}

/// Cuts the line, stamps it and hands it over; false when nobody takes the lines.
/// The word is searched for anywhere in the line, since that is cheaper than to read the line twice, and a
/// stamp too many does no harm.
bool Engio::hand_over(ArrivedLine& line) {
    const std::lock_guard lock(m_engine_mutex);
    if (m_engine == nullptr) return false;
    line.text.resize(text::utf8_prefix(line.text, m_engine->longest_line()).size());
    if (line.text.find("bestmove") != std::string::npos) line.arrival = arrival_stamp();
    try {
        m_engine->receive_line(line);
    } catch (const std::exception& error) {
        // One bad line must end neither the reader nor the program.
        std::cerr << std::string(error.what()) + '\n';
    } catch (...) {
        std::cerr << "Engio::operator()  unknown exception from \"" + with_stamp(line) + "\"\n";
    }
    return true;
}

void Engio::send_lines(std::span<const std::string_view> lines) {
    const std::lock_guard lock(m_send_mutex);
    if (is_alive()) write_lines(lines);
}

void Engio::write_lines(std::span<const std::string_view> lines) {
    std::string bytes;
    bytes.reserve(
        std::accumulate(lines.begin(), lines.end(), std::size_t(0),
                        [](std::size_t sum, std::string_view line) { return sum + line.size() + 2; }));
    for (const std::string_view line : lines) {
        if (line.empty()) continue;
        if (line.size() > longest_command) {
            log("   Engio::operator() command from interface too big   size=" + std::to_string(line.size()));
            continue;
        }
        if (m_log_enabled) log(std::string("   engine <- ").append(line));
        bytes += line;
        if (!line.ends_with('\n') && !line.ends_with('\r')) bytes += m_crlf ? "\r\n" : "\n";
    }
    if (bytes.empty()) return;
    // A crashed engine may still take its "quit", but is not waited for again.
    const auto wait = m_crashed_flag ? std::chrono::milliseconds(0) : m_patience;
    if (write_all(m_child.stdin_fd(), bytes, wait, m_leaving)) return;
    m_crashed_flag = true;
    m_wakeup->wake();
}

/// The order is what matters: the flag, the word, the reader's end, and only then the descriptors.
void Engio::quit() {
    if (!m_spawned) return;
    // Set ahead of the command: an engine that leaves at once has not crashed.
    m_quit_flag = true;
    m_wakeup->wake();
    {
        const std::lock_guard lock(m_send_mutex);
        const std::string_view command = "quit";
        write_lines({&command, 1});
    }
    {
        std::unique_lock lock(m_reader_mutex);
        m_reader_left.wait(lock, [this] { return !m_reading; });
    }
    {
        // Only now may the descriptors go: a late read or write would hit whatever has their numbers next.
        const std::lock_guard lock(m_send_mutex);
        m_spawned = false;
        m_child.release();
        m_wakeup.reset();
    }
    m_log.close();
    set_engine(nullptr);
}

}  // namespace velmora
