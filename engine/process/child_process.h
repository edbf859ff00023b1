#pragma once

#include <string>

namespace velmora {

/// A program running as a child, with a pipe to its standard input and one from its standard output.
///
/// The child inherits the environment, the working directory and the standard error, gets no arguments, and
/// is never killed: let go, it is reaped by the default main context whenever it ends.
class ChildProcess {
public:
    ChildProcess() = default;
    /// As release().
    ~ChildProcess();

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Starts the program at `path`; the search path is not used. Throws std::runtime_error with the system's
    /// reason. REQUIRES: no child is held.
    void spawn(const std::string& path);

    /// The parent's ends of the pipes, -1 without a child. Writing does not block, reading does.
    int stdin_fd() const { return m_stdin_fd; }
    int stdout_fd() const { return m_stdout_fd; }

    /// Whether the child has read all that was written to it.
    bool has_taken_input() const;

    /// Closes both pipes and leaves the child to itself. Nothing without a child. What goes wrong in closing
    /// is reported on standard error.
    void release();

private:
    int m_pid = 0;
    int m_stdin_fd = -1;
    int m_stdout_fd = -1;
    bool m_held = false;
};

}  // namespace velmora
