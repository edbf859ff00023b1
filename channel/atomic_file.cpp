#include "channel/atomic_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace velmora {
namespace {

[[noreturn]] void fail(const std::string& path, int error) {
    throw std::runtime_error(path + ": " + std::generic_category().message(error));
}

/// The file that a chain of links ends at, which need not exist.
std::string link_target(const std::string& path) {
    std::filesystem::path target = path;
    std::error_code error;
    for (int hops = 0; std::filesystem::is_symlink(target, error); ++hops) {
        constexpr int most_hops = 40;  // the kernel's own limit
        if (hops == most_hops) fail(path, ELOOP);
        // A relative link counts from its own directory; an absolute one replaces the whole path.
        target = target.parent_path() / std::filesystem::read_symlink(target, error);
    }
    return target.string();
}

/// The permissions of the file that is to be replaced, nothing when there is none.
std::optional<mode_t> permissions_of_old(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        if (errno == ENOENT) return std::nullopt;
        fail(path, errno);
    }
    if (S_ISDIR(status.st_mode)) fail(path, EISDIR);
    if (!S_ISREG(status.st_mode)) fail(path, EINVAL);
    if (::access(path.c_str(), W_OK) != 0) fail(path, errno);
    return status.st_mode & 07777;
}

/// Writes the whole text; gives 0, or the reason why it could not.
int write_all(int descriptor, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// An open file in the directory of the target, removed when it goes out of scope without a rename.
class Neighbour {
public:
    explicit Neighbour(const std::string& target) : m_target(target) {
        // A short name of its own: the target's with something added could be too long for the file system.
        const std::string stem =
            target.substr(0, target.find_last_of('/') + 1) + ".velmora-" + std::to_string(::getpid()) + "-";
        constexpr int most_tries = 1000;  // names taken by other threads or left by a crash
        for (int n = 0; n < most_tries && m_descriptor < 0; ++n) {
            m_path = stem + std::to_string(n);
            m_descriptor = ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (m_descriptor < 0 && errno != EEXIST) fail(m_target, errno);
        }
        if (m_descriptor < 0) fail(m_target, EEXIST);
    }
    ~Neighbour() {
        if (m_descriptor >= 0) ::close(m_descriptor);
        if (!m_path.empty()) ::unlink(m_path.c_str());
    }
    Neighbour(const Neighbour&) = delete;
    Neighbour& operator=(const Neighbour&) = delete;

    void set_permissions(mode_t mode) {
        if (::fchmod(m_descriptor, mode) != 0) fail(m_target, errno);
    }

    void write(std::string_view text) {
        if (const int error = write_all(m_descriptor, text); error != 0) fail(m_target, error);
    }

    /// Forces the text to the disk and gives the file its final name.
    void move_into_place() {
        if (::fsync(m_descriptor) != 0) fail(m_target, errno);
        const int descriptor = m_descriptor;
        m_descriptor = -1;
        if (::close(descriptor) != 0) fail(m_target, errno);
        if (std::rename(m_path.c_str(), m_target.c_str()) != 0) fail(m_target, errno);
        m_path.clear();
    }

private:
    const std::string m_target;
    std::string m_path;
    int m_descriptor = -1;
};

}  // namespace

void write_file_atomically(const std::string& path, std::string_view text) {
    const std::string target = link_target(path);
    const auto permissions = permissions_of_old(target);
    Neighbour neighbour(target);
    if (permissions) neighbour.set_permissions(*permissions);
    neighbour.write(text);
    neighbour.move_into_place();
}

void append_to_file(const std::string& path, std::string_view text) {
    // A pipe that nobody reads refuses to open instead of making everybody wait.
    constexpr int flags = O_WRONLY | O_APPEND | O_CLOEXEC | O_NONBLOCK;
    int descriptor = ::open(path.c_str(), flags | O_CREAT | O_EXCL, 0666);
    const bool is_new = descriptor >= 0;
    if (!is_new && errno == EEXIST) descriptor = ::open(path.c_str(), flags | O_CREAT, 0666);
    if (descriptor < 0) fail(path, errno);

    struct stat before {};
    int error = ::fstat(descriptor, &before) != 0 ? errno : write_all(descriptor, text);
    const bool torn = error != 0 && S_ISREG(before.st_mode) && ::ftruncate(descriptor, before.st_size) != 0;
    if (::close(descriptor) != 0 && error == 0) error = errno;
    if (error == 0) return;
    if (is_new) ::unlink(path.c_str());
    fail(torn ? path + " (a part was written)" : path, error);
}

}  // namespace velmora
