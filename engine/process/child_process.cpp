#include "engine/process/child_process.h"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <poll.h>
#include <stdexcept>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <type_traits>
#include <unistd.h>
#include <utility>

#include <glib.h>
#include <glib/gstdio.h>

#include "engine/time/wall_clock.h"

namespace velmora {

static_assert(std::is_same_v<GPid, int>);

namespace {

void close_pid(GPid pid, gint /*wait_status*/, gpointer /*data*/) { g_spawn_close_pid(pid); }

/// Takes the text out of a GLib error and frees it.
std::string take_message(GError* error) {
    std::string message = error->message;
    g_error_free(error);
    return message;
}

/// Gives the calling thread its default timer slack for a while. A child inherits what the thread has at the
/// moment, and one that a thread has chosen for its own waits is no business of another program.
class DefaultTimerSlack {
public:
    DefaultTimerSlack() { prctl(PR_SET_TIMERSLACK, 0); }  // 0 stands for the default
    ~DefaultTimerSlack() {
        if (m_before > 0) prctl(PR_SET_TIMERSLACK, static_cast<unsigned long>(m_before));
    }

    DefaultTimerSlack(const DefaultTimerSlack&) = delete;
    DefaultTimerSlack& operator=(const DefaultTimerSlack&) = delete;

private:
    const int m_before = prctl(PR_GET_TIMERSLACK);  // nanoseconds
};

/// In the new process ahead of the program: calls that are safe behind a fork alone. A mask of signals is
/// inherited, and an engine is to have none of the caller's.
void become_owned(gpointer /*data*/) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// Waits for the process to end by itself, then ends what is left of its group. The process is reaped last,
/// since its number is nobody else's until then.
void end_group(int pid) {
    constexpr std::chrono::milliseconds patience(500);
    if (const int fd = static_cast<int>(syscall(SYS_pidfd_open, pid, 0)); fd >= 0) {
        pollfd ended{fd, POLLIN, 0};
        ::poll(&ended, 1, static_cast<int>(patience.count()));
        ::close(fd);
    }
    ::kill(-pid, SIGKILL);
    while (::waitpid(pid, nullptr, 0) < 0 && errno == EINTR) continue;
}

void close_descriptor(int& fd, const char* what) {
    GError* error = nullptr;
    if (g_close(std::exchange(fd, -1), &error) == FALSE) {
        std::cerr << wall_log_stamp() + "  Engio::quit() " + what + " error " + take_message(error) + '\n';
    }
}

}  // namespace

ChildProcess::~ChildProcess() { release(); }

void ChildProcess::spawn(const ProgramCall& call) {
    std::string program = call.path;
    std::vector<std::string> words = call.arguments;
    std::vector<gchar*> arguments{program.data()};
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    const int flags = G_SPAWN_DO_NOT_REAP_CHILD | (call.owned ? G_SPAWN_SEARCH_PATH : 0);
    GError* error = nullptr;
    const DefaultTimerSlack for_the_child;
    if (g_spawn_async_with_pipes(call.directory.empty() ? nullptr : call.directory.c_str(), arguments.data(),
                                 nullptr, static_cast<GSpawnFlags>(flags),
                                 call.owned ? become_owned : nullptr, nullptr, &m_pid, &m_stdin_fd,
                                 &m_stdout_fd, nullptr, &error) == FALSE) {
        throw std::runtime_error(take_message(error));
    }
    m_owned = call.owned;
    m_held = true;
    // A child that does not read its input must not stop whoever writes to it.
    fcntl(m_stdin_fd, F_SETFL, fcntl(m_stdin_fd, F_GETFL) | O_NONBLOCK);
}

bool ChildProcess::has_taken_input() const {
    int waiting = 0;
    return ioctl(m_stdin_fd, FIONREAD, &waiting) != 0 || waiting == 0;
}

void ChildProcess::release() {
    if (!std::exchange(m_held, false)) return;
    if (!m_owned) g_child_watch_add(m_pid, close_pid, nullptr);
    close_descriptor(m_stdin_fd, "standard input");
    close_descriptor(m_stdout_fd, "standard output");
    if (m_owned) end_group(m_pid);
}

}  // namespace velmora
