#include "openings/mapped_file.h"

#include <algorithm>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {

bool MappedFile::open(const std::string& path) {
    close();
    m_descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status {};
    if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0 || S_ISDIR(status.st_mode)) {
        close();
        return false;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size == 0) return true;  // nothing to map; open all the same
    void* const data = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, m_descriptor, 0);
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
    if (m_descriptor >= 0) ::close(m_descriptor);
    m_descriptor = -1;
    m_data = nullptr;
    m_size = 0;
}

std::size_t MappedFile::readable_size() const {
    struct stat status {};
    if (m_size == 0 || ::fstat(m_descriptor, &status) != 0) return 0;
    return std::min(m_size, static_cast<std::size_t>(status.st_size));
}

}  // namespace velmora
