#pragma once

#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora {

/// Writes all bytes; without a reader the process ends.
inline void write_all(int fd, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = ::write(fd, bytes.data(), bytes.size());
        if (count <= 0) std::_Exit(1);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// The engine's side of a measured exchange: hands each line of standard input to `answer` until that gives
/// false or the input ends, reading as plainly as can be.
template <class Answer>
void answer_lines(Answer answer) {
    std::string pending;
    char buffer[4096];
    for (;;) {
        const auto count = ::read(STDIN_FILENO, buffer, sizeof buffer);
        if (count <= 0) return;
        pending.append(buffer, static_cast<std::size_t>(count));
        for (std::size_t end = 0; (end = pending.find('\n')) != std::string::npos;
             pending.erase(0, end + 1)) {
            if (!answer(std::string_view(pending).substr(0, end))) return;
        }
    }
}

/// A child process that plays an engine on two bare pipes, without any of the engine layer.
class BareEngine {
public:
    /// `play` runs in the child, on its standard input and output.
    template <class Play>
    explicit BareEngine(Play play) {
        int to_child[2];
        int to_parent[2];
        if (pipe(to_child) != 0 || pipe(to_parent) != 0) std::abort();
        m_child = fork();
        if (m_child == 0) {
            dup2(to_child[0], STDIN_FILENO);
            dup2(to_parent[1], STDOUT_FILENO);
            for (int fd : {to_child[0], to_child[1], to_parent[0], to_parent[1]}) close(fd);
            play();
            std::_Exit(0);
        }
        close(to_child[0]);
        close(to_parent[1]);
        m_to_child = to_child[1];
        m_from_child = to_parent[0];
    }
    ~BareEngine() {
        close(m_to_child);
        close(m_from_child);
        waitpid(m_child, nullptr, 0);
    }
    BareEngine(const BareEngine&) = delete;
    BareEngine& operator=(const BareEngine&) = delete;

    void send(std::string_view bytes) { write_all(m_to_child, bytes); }

    /// Reads up to the end of a line behind `word`; gives all that was read.
    std::string wait_for(std::string_view word) {
        std::string answer;
        while (answer.find(word) == std::string::npos || !answer.ends_with('\n')) {
            answer += read_some();
        }
        return answer;
    }

    /// What the child has written, at least a byte.
    std::string read_some() {
        char buffer[4096];
        const auto count = ::read(m_from_child, buffer, sizeof buffer);
        if (count <= 0) std::abort();
        return std::string(buffer, static_cast<std::size_t>(count));
    }

private:
    pid_t m_child = -1;
    int m_to_child = -1;
    int m_from_child = -1;
};

}  // namespace velmora
