#pragma once

#include <chrono>
#include <ios>
#include <optional>
#include <string>

#include "window/interface.h"

namespace velmora::soak {

/// Whether the window and the referee know the same position, seen from outside: by the logs that the program
/// writes in the working directory. REQUIRES: debugging is on, and the engine in the first seat speaks UCI.
class PositionCheck {
public:
    enum class State { waiting, agrees, differs, unknown };

    explicit PositionCheck(Interface& window) : m_window(window) {}

    /// Whether the referee has done all that it was told, and the window all that the referee said, since the
    /// last call that gave true or since disturb().
    bool is_quiet();
    void disturb() { m_mark.clear(); }
    bool is_under_way() const { return !m_mark.empty(); }

    /// Ahead of a move, which makes the referee tell the engine its position.
    void prepare();
    /// What the window shows after that move.
    void expect(const std::string& fen) { m_shown = fen; }
    bool is_waiting() const { return !m_shown.empty(); }
    void give_up() { m_shown.clear(); }
    State look();
    /// Both positions, and what the engine was sent meanwhile.
    const std::string& report() const { return m_report; }

private:
    Interface& m_window;
    int m_marks = 0;
    std::string m_mark;  // a line that says nothing, on its way through the referee
    std::streamoff m_mark_start = 0;
    std::optional<std::chrono::steady_clock::time_point> m_mark_seen;
    std::string m_shown;
    std::streamoff m_log_start = 0;
    std::chrono::steady_clock::time_point m_prepared;
    std::string m_report;
};

}  // namespace velmora::soak
