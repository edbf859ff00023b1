#pragma once

#include <cstdlib>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>

namespace velmora::test {

/// A file of the given bytes that has a path and never reaches a disk.
class MemoryFile {
public:
    explicit MemoryFile(std::string_view bytes) : m_descriptor(::memfd_create("test", 0)) {
        const auto size = static_cast<ssize_t>(bytes.size());
        if (m_descriptor < 0 || ::write(m_descriptor, bytes.data(), bytes.size()) != size) std::abort();
    }
    ~MemoryFile() { ::close(m_descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_descriptor); }

private:
    int m_descriptor;
};

}  // namespace velmora::test
