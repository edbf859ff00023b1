#include "game/block_reader.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace velmora {

bool BlockReader::open(const std::string& path) {
    close();
    if (!m_file.open(path)) return false;
    if (!m_block) m_block = std::make_unique_for_overwrite<char[]>(block_size);
    seek(0);
    return true;
}

void BlockReader::close() {
    m_file.close();
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
    if (!is_open() || m_end == block_size || m_leaving.stop_requested()) return false;
    ssize_t count = 0;
    do {
        count = ::pread(m_file.descriptor(), m_block.get() + m_end, block_size - m_end,
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

}  // namespace velmora
