#pragma once

#include <string>
#include <vector>

namespace velmora {

/// How a program is started.
struct ProgramCall {
    std::string path;                      ///< looked for in $PATH where it has no slash and `owned`
    std::vector<std::string> arguments{};  ///< without the program's own name
    std::string directory{};               ///< to work in; empty for that of the caller
    /// The program gets a process group of its own, which ends, with all that the program has started in it,
    /// when it is let go, and the program dies with the thread that started it. Nothing of a match that is
    /// broken off may go on computing beside the next one.
    bool owned = false;
};

/// A program running as a child, with a pipe to its standard input and one from its standard output.
///
/// The child inherits the environment and the standard error, and is never killed, unless it is owned: let
/// go, it is reaped by the default main context whenever it ends. An owned one has half a second to end.
///
/// Reaping is left to the main context because nobody here can wait: an engine may take seconds to end, or
/// never do it, and neither the referee nor the window stands still for that. To kill it would take from it
/// what it writes at its end, a book that it learns or a log.
class ChildProcess {
public:
    ChildProcess() = default;
    /// As release().
    ~ChildProcess();

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Starts the program at `path`; the search path is not used. Throws std::runtime_error with the system's
    /// reason. REQUIRES: no child is held.
    /// Without the search path, so that what was chosen in a file dialog is what runs.
    void spawn(const std::string& path) { spawn(ProgramCall{.path = path}); }
    void spawn(const ProgramCall& call);

    /// The parent's ends of the pipes, -1 without a child. Writing does not block, reading does.
    int stdin_fd() const { return m_stdin_fd; }
    int stdout_fd() const { return m_stdout_fd; }

    /// Whether the child has read all that was written to it.
    /// Asks the pipe, not the engine: no protocol answers that before the handshake is done.
    bool has_taken_input() const;

    /// Closes both pipes and leaves the child to itself. Nothing without a child. What goes wrong in closing
    /// is reported on standard error.
    void release();

private:
    int m_pid = 0;
    int m_stdin_fd = -1;
    int m_stdout_fd = -1;
    bool m_held = false;
    bool m_owned = false;
};

}  // namespace velmora
