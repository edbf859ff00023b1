#include "game/block_reader.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {

bool BlockReader::open(const std::string& path) {
    close();
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (descriptor < 0) return false;
    if (::fstat(descriptor, &status) != 0 || S_ISDIR(status.st_mode)) {
        ::close(descriptor);
        return false;
    }
    m_descriptor = descriptor;
    if (!m_block) m_block = std::make_unique_for_overwrite<char[]>(block_size);
    seek(0);
    return true;
}

void BlockReader::close() {
    if (m_descriptor >= 0) ::close(m_descriptor);
    m_descriptor = -1;
    m_begin = m_end = 0;
}

bool BlockReader::fill() {
    m_block_offset += m_end;
    m_begin = m_end = 0;
    return read_behind();
}

bool BlockReader::extend() {
    if (m_begin > 0) {
        std::memmove(m_block.get(), m_block.get() + m_begin, m_end - m_begin);
        m_block_offset += m_begin;
        m_end -= m_begin;
        m_begin = 0;
    }
    return read_behind();
}

bool BlockReader::read_behind() {
    if (m_descriptor < 0 || m_end == block_size || m_leaving.stop_requested()) return false;
    ssize_t count = 0;
    do {
        count = ::pread(m_descriptor, m_block.get() + m_end, block_size - m_end,
                        static_cast<off_t>(m_block_offset + m_end));
    } while (count < 0 && errno == EINTR);
    if (count <= 0) return false;
    m_end += static_cast<std::size_t>(count);
    return true;
}

void BlockReader::skip_line() {
    for (auto bytes = window(); !bytes.empty(); bytes = window()) {
        const auto end = bytes.find('\n');
        consume(end == std::string_view::npos ? bytes.size() : end + 1);
        if (end != std::string_view::npos) return;
    }
}

void BlockReader::seek(std::uint64_t offset) {
    if (offset >= m_block_offset && offset <= m_block_offset + m_end) {
        m_begin = static_cast<std::size_t>(offset - m_block_offset);
    } else {
        m_block_offset = offset;
        m_begin = m_end = 0;
    }
}

std::uint64_t BlockReader::file_size() const {
    struct stat status {};
    if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0 || status.st_size < 0) return 0;
    return static_cast<std::uint64_t>(status.st_size);
}

}  // namespace velmora
