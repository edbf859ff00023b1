#include "collection/source_file.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "collection/checksum.h"

namespace velmora {

namespace {

constexpr std::uint64_t whole_up_to = std::uint64_t{4} << 20;
constexpr std::uint64_t samples = 256;
constexpr std::size_t sample_size = 16384;
constexpr std::size_t front_size = 4096;

std::int64_t modified_ns(const struct stat& status) {
    return std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
}

/// Fewer bytes at the end of the file.
std::string_view read_at(int descriptor, std::uint64_t offset, std::vector<char>& buffer) {
    std::size_t size = 0;
    while (size < buffer.size()) {
        const auto count = ::pread(descriptor, buffer.data() + size, buffer.size() - size,
                                   static_cast<off_t>(offset + size));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        size += static_cast<std::size_t>(count);
    }
    return {buffer.data(), size};
}

}  // namespace

SourceFile::SourceFile(const std::string& path) : m_path(path) {
    if (!m_file.open(path)) throw std::runtime_error(path + ": " + m_file.fault());
    struct stat status {};
    if (::fstat(descriptor(), &status) != 0) throw std::runtime_error(path + ": " + std::strerror(errno));
    m_stamp.size = static_cast<std::uint64_t>(status.st_size);
    m_stamp.modified_ns = modified_ns(status);
    std::vector<char> buffer(front_size);
    const auto front = read_at(descriptor(), 0, buffer);
    if (front.starts_with("\xFF\xFE") || front.starts_with("\xFE\xFF")) {
        throw std::runtime_error(path + ": the text is in UTF-16; save it as UTF-8 to open it");
    }
    if (front.find('\0') != std::string_view::npos && front.find("[Event ") == std::string_view::npos) {
        throw std::runtime_error(path + ": not a PGN file");
    }
    m_stamp.digest = digest(m_stamp.size);
}

std::uint64_t SourceFile::digest(std::uint64_t size) const {
    auto sum = checksum({});
    std::vector<char> buffer(sample_size);
    const auto add = [&](std::uint64_t offset, std::uint64_t count) {
        buffer.resize(static_cast<std::size_t>(count));
        sum = checksum(read_at(descriptor(), offset, buffer), sum);
    };
    if (size <= whole_up_to) {
        add(0, size);
        return sum;
    }
    const auto last = size - sample_size;
    for (std::uint64_t sample = 0; sample < samples; ++sample)
        add(last / (samples - 1) * sample, sample_size);
    add(last, sample_size);
    return sum;
}

bool SourceFile::is_unchanged() const {
    struct stat status {};
    if (::fstat(descriptor(), &status) != 0) return false;
    const auto size = static_cast<std::uint64_t>(status.st_size);
    return size > m_stamp.size || (size == m_stamp.size && modified_ns(status) == m_stamp.modified_ns);
}

}  // namespace velmora
