#include "collection/index_place.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

#include "base/atomic_file.h"
#include "base/regular_file.h"
#include "base/text.h"
#include "collection/checksum.h"

namespace velmora {

namespace fs = std::filesystem;

namespace {

constexpr const char* manifest_end = ".index";
constexpr const char* lock_end = ".lock";
constexpr auto lock_pause = std::chrono::milliseconds(20);

[[noreturn]] void fail(const std::string& path, int error) {
    throw std::runtime_error(path + ": " + std::strerror(error));
}

std::string hexadecimal(std::uint64_t number) {
    std::string text(16, '0');
    char digits[16];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), number, 16).ptr;
    return text.replace(16 - static_cast<std::size_t>(end - digits), std::string::npos,
                        std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

}  // namespace

std::string collections_directory() {
    const char* const cache = std::getenv("XDG_CACHE_HOME");
    fs::path root = cache == nullptr ? "" : cache;
    if (!root.is_absolute()) {
        const char* const home = std::getenv("HOME");
        root = fs::path(home == nullptr || *home == '\0' ? "/tmp" : home) / ".cache";
    }
    return (root / "velmora" / "collections").string();
}

IndexPlace::IndexPlace(const std::string& pgn_path, const std::string& directory)
    : m_directory(directory + '/') {
    std::error_code error;
    const auto absolute = fs::canonical(pgn_path, error);
    m_pgn_path = error ? fs::absolute(pgn_path).string() : absolute.string();
    m_name = hexadecimal(checksum(m_pgn_path));
    fs::create_directories(directory, error);
    if (error) throw std::runtime_error(directory + ": " + error.message());
}

std::optional<IndexManifest> IndexPlace::manifest() const {
    // Far more than a manifest ever has, and nobody else's file is read whole.
    constexpr std::size_t largest = std::size_t{1} << 20;
    RegularFileStream stream(m_directory + m_name + manifest_end);
    if (!stream || stream.file_size() > largest) return std::nullopt;
    const std::string text((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
    auto manifest = IndexManifest::from_text(text);
    const bool is_of_file =
        manifest && manifest->path == text::one_line(m_pgn_path) && manifest->directory.starts_with(m_name);
    return is_of_file ? manifest : std::nullopt;
}

void IndexPlace::publish(const IndexManifest& manifest) const {
    write_file_atomically(m_directory + m_name + manifest_end, manifest.to_text());
}

void IndexPlace::withdraw() const { ::unlink((m_directory + m_name + manifest_end).c_str()); }

std::string IndexPlace::path_of(const IndexManifest& manifest, const std::string& file) const {
    return m_directory + manifest.directory + '/' + file;
}

std::string IndexPlace::make_directory() const {
    std::string path = m_directory + m_name + "-XXXXXX";
    if (::mkdtemp(path.data()) == nullptr) fail(path, errno);
    return path.substr(m_directory.size());
}

void IndexPlace::remove_all_but(const IndexManifest& manifest) const {
    // What can't be removed stays until the next time.
    std::error_code error;
    std::vector<fs::path> others;
    for (fs::directory_iterator entry(m_directory, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto name = entry->path().filename().string();
        const bool is_ours = name.starts_with(m_name + "-");
        if (is_ours && name != manifest.directory) others.push_back(entry->path());
    }
    for (fs::directory_iterator entry(m_directory + manifest.directory, error), end; !error && entry != end;
         entry.increment(error)) {
        const auto name = entry->path().filename().string();
        const bool is_named = std::any_of(manifest.segments.begin(), manifest.segments.end(),
                                          [&name](const auto& segment) { return segment.file == name; });
        if (name.starts_with("positions") && !is_named) others.push_back(entry->path());
    }
    for (const auto& other : others) fs::remove_all(other, error);
}

IndexPlace::Lock::~Lock() { ::close(m_descriptor); }

std::unique_ptr<IndexPlace::Lock> IndexPlace::lock(const std::stop_token& stop) const {
    const auto path = m_directory + m_name + lock_end;
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (descriptor < 0) fail(path, errno);
    auto lock = std::make_unique<Lock>(descriptor);
    // Tried again and again instead of waited for: who waits in the system can't be stopped.
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR) fail(path, errno);
        if (stop.stop_requested()) return nullptr;
        std::this_thread::sleep_for(lock_pause);
    }
    return lock;
}

}  // namespace velmora
