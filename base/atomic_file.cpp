#include "base/atomic_file.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "base/text.h"

namespace velmora {
namespace {

[[noreturn]] void fail(const std::string& path, int error) {
    throw std::runtime_error(path + ": " + std::generic_category().message(error));
}

/// The file that a chain of links ends at, which need not exist.
///
/// Without it the rename would put a plain file in place of the link.
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
///
/// A rename needs no right to the old file, so that right is looked at here: a write-protected file stays
/// what it is.
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

/// Writes the whole text; gives 0, or the reason why it could not and the rest that wasn't written.
int write_all(int descriptor, std::string_view& text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno != EINTR) return errno;
        if (written > 0) text.remove_prefix(static_cast<std::size_t>(written));
    }
    return 0;
}

/// Where the neighbours of a target stand, and what their names begin with.
struct NeighbourNames {
    explicit NeighbourNames(const std::string& target)
        : directory(target.substr(0, target.find_last_of('/') + 1)) {
        // A short name of its own: the target's with something added could be too long for the file system.
        std::uint64_t hash = 0xcbf29ce484222325;  // FNV-1a
        for (const char c : std::string_view(target).substr(directory.size())) {
            hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
        }
        char digits[17];
        std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
        stem = std::string(".velmora-") + digits + "-";
    }

    std::string directory;  // with a slash at its end, empty for the working directory
    std::string stem;
};

/// Whether nobody holds the file: its writer is gone.
///
/// Opened without waiting and without following links: anybody can have put anything there under that
/// name.
bool is_left_over(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return false;
    const bool locked = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    ::close(descriptor);
    return locked;
}

/// Whether a name is ".velmora-<process>-<n>" of a process that is gone. Such a neighbour tells no target.
bool is_left_by_process(std::string_view name) {
    const auto process = name.substr(std::min(name.size(), std::string_view(".velmora-").size()));
    const auto dash = process.find('-');
    if (dash == std::string_view::npos || !text::strict_integer<std::uint32_t>(process.substr(dash + 1))) {
        return false;
    }
    const auto id = text::strict_integer<pid_t>(process.substr(0, dash));
    return id && *id > 0 && ::kill(*id, 0) != 0 && errno == ESRCH;
}

void remove_left_overs(const NeighbourNames& names) {
    std::error_code error;
    const auto directory = names.directory.empty() ? std::string(".") : names.directory;
    for (std::filesystem::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto name = entry->path().filename().string();
        const auto path = names.directory + name;
        if (name.starts_with(names.stem) ? is_left_over(path) : is_left_by_process(name)) {
            ::unlink(path.c_str());
        }
    }
}

/// An open file in the directory of the target, removed when it goes out of scope without a rename.
class Neighbour {
public:
    explicit Neighbour(const std::string& target) : m_target(target) {
        const NeighbourNames names(target);
        remove_left_overs(names);
        constexpr int most_tries = 1000;  // names of others that write the same file at this moment
        for (int n = 0; n < most_tries && m_descriptor < 0; ++n) {
            m_path = names.directory + names.stem + std::to_string(n);
            m_descriptor = ::open(m_path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (m_descriptor < 0 && errno != EEXIST) fail(m_target, errno);
            if (m_descriptor >= 0 && !keep()) {
                ::close(m_descriptor);
                m_descriptor = -1;
            }
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

    /// Forces the text to the disk and gives the file its final name. It is locked until it has that.
    void move_into_place() {
        if (::fsync(m_descriptor) != 0) fail(m_target, errno);
        if (std::rename(m_path.c_str(), m_target.c_str()) != 0) fail(m_target, errno);
        m_path.clear();
    }

private:
    /// Locks the new file. False when somebody has removed it as left over before it was locked.
    ///
    /// Between making the file and locking it another writer may take it for left over; the count of its
    /// names tells, since removing it brings that to 0.
    bool keep() const {
        // Where files can't be locked nobody finds them left over.
        if (::flock(m_descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
        struct stat status {};
        return ::fstat(m_descriptor, &status) == 0 && status.st_nlink > 0;
    }

    const std::string m_target;
    std::string m_path;
    int m_descriptor = -1;
};

/// A descriptor that is closed when it goes out of scope.
class Descriptor {
public:
    explicit Descriptor(int number) : m_number(number) {}
    ~Descriptor() {
        if (m_number >= 0) ::close(m_number);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int number() const { return m_number; }
    /// Gives 0, or the reason why what was written may not have reached the file.
    int close() { return ::close(std::exchange(m_number, -1)) != 0 ? errno : 0; }

private:
    int m_number;
};

/// Takes back what was written behind the old end of an ordinary file. False when it has to stay, since
/// somebody else has written, too.
///
/// A part of a line or a game would make what is appended next unreadable, too.
bool take_back(int descriptor, off_t old_size, std::size_t written) {
    struct stat now {};
    if (written == 0) return true;
    if (::fstat(descriptor, &now) != 0 || now.st_size != old_size + static_cast<off_t>(written)) return false;
    return ::ftruncate(descriptor, old_size) == 0;
}

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
    append_to_file_behind(
        path, [] { return std::string(); }, text);
}

void append_to_file_behind(const std::string& path, const std::function<std::string()>& ahead,
                           std::string_view text) {
    // A pipe that nobody reads refuses to open instead of making everybody wait.
    constexpr int flags = O_WRONLY | O_APPEND | O_CLOEXEC | O_NONBLOCK;
    int descriptor = ::open(path.c_str(), flags | O_CREAT | O_EXCL, 0666);
    const bool is_new = descriptor >= 0;
    if (!is_new && errno == EEXIST) descriptor = ::open(path.c_str(), flags | O_CREAT, 0666);
    if (descriptor < 0) fail(path, errno);
    Descriptor file(descriptor);
    // Closing it lets go of it. Somebody who keeps the file for ever must not hold us up.
    ::flock(descriptor, LOCK_EX | LOCK_NB);

    struct stat before {};
    if (::fstat(descriptor, &before) != 0) fail(path, errno);
    const bool ordinary = S_ISREG(before.st_mode);
    const std::string whole = (ordinary ? ahead() : std::string()).append(text);
    std::string_view rest = whole;
    int error = write_all(descriptor, rest);
    const bool clean =
        error == 0 || !ordinary || take_back(descriptor, before.st_size, whole.size() - rest.size());
    if (const int late = file.close(); error == 0) error = late;
    if (error == 0) return;
    struct stat after {};
    if (is_new && ::stat(path.c_str(), &after) == 0 && after.st_size == 0) ::unlink(path.c_str());
    fail(clean ? path : path + " (a part was written)", error);
}

}  // namespace velmora
