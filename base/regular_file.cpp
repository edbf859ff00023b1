#include "base/regular_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace velmora {

bool RegularFile::open(const std::string& path) {
    close();
    // Without blocking: else the open of a pipe would wait for a writer.
    m_descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat status {};
    const int error = m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0 ? errno : 0;
    m_is_missing = error == ENOENT || error == ENOTDIR || error == ENAMETOOLONG;
    m_fault = error != 0                 ? std::generic_category().message(error)
              : !S_ISREG(status.st_mode) ? "not a regular file"
                                         : "";
    if (!m_fault.empty()) close();
    return is_open();
}

void RegularFile::close() {
    if (m_descriptor >= 0) ::close(m_descriptor);
    m_descriptor = -1;
}

int RegularFile::release() { return std::exchange(m_descriptor, -1); }

std::uint64_t RegularFile::size() const {
    struct stat status {};
    if (m_descriptor < 0 || ::fstat(m_descriptor, &status) != 0 || status.st_size < 0) return 0;
    return static_cast<std::uint64_t>(status.st_size);
}

RegularFileStream::RegularFileStream(const std::string& path)
    : std::istream(nullptr),
      m_file(path),
      m_size(m_file.size()),
      m_buffer(m_file.release(), std::ios::in | std::ios::binary) {
    rdbuf(&m_buffer);
    if (!m_buffer.is_open()) setstate(std::ios::failbit);
}

std::optional<std::string> reading_fault(const std::string& path) {
    const RegularFile file(path);
    if (file.is_open() || file.is_missing()) return std::nullopt;
    return path + ": " + file.fault();
}

}  // namespace velmora
