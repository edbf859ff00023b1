#include "openings/mapped_file.h"

#include <algorithm>
#include <sys/mman.h>

namespace velmora {

bool MappedFile::open(const std::string& path) {
    close();
    if (!m_file.open(path)) return false;
    const auto size = static_cast<std::size_t>(m_file.size());
    if (size == 0) return true;  // nothing to map; open all the same
    void* const data = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, m_file.descriptor(), 0);
    if (data == MAP_FAILED) {
        close();
        return false;
    }
    ::madvise(data, size, MADV_RANDOM);
    m_data = static_cast<const unsigned char*>(data);
    m_size = size;
    return true;
}

void MappedFile::close() {
    if (m_data) ::munmap(const_cast<unsigned char*>(m_data), m_size);
    m_file.close();
    m_data = nullptr;
    m_size = 0;
}

std::size_t MappedFile::readable_size() const {
    return std::min(m_size, static_cast<std::size_t>(m_file.size()));
}

}  // namespace velmora
