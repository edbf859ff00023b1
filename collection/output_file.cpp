#include "collection/output_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {

OutputFile::OutputFile(const std::string& path, Kind kind) : m_path(path) {
    if (kind == Kind::nameless) {
        m_descriptor = ::open(path.c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, 0600);
        if (m_descriptor < 0) {
            // A file system that has no nameless files.
            std::string name = path + "/scratch-XXXXXX";
            m_descriptor = ::mkostemp(name.data(), O_CLOEXEC);
            if (m_descriptor >= 0) ::unlink(name.c_str());
        }
    } else {
        const int fresh = kind == Kind::fresh ? O_TRUNC : 0;
        m_descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | fresh, 0600);
    }
    if (m_descriptor < 0) fail(errno);
}

OutputFile::~OutputFile() { ::close(m_descriptor); }

void OutputFile::write_at(std::uint64_t offset, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = ::pwrite(m_descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) fail(count < 0 ? errno : ENOSPC);
        offset += static_cast<std::uint64_t>(count);
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

void OutputFile::read_at(std::uint64_t offset, std::span<char> bytes) const {
    while (!bytes.empty()) {
        const auto count = ::pread(m_descriptor, bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) fail(count < 0 ? errno : EIO);
        offset += static_cast<std::uint64_t>(count);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

void OutputFile::resize(std::uint64_t size) {
    if (::ftruncate(m_descriptor, static_cast<off_t>(size)) != 0) fail(errno);
}

void OutputFile::sync() {
    if (::fdatasync(m_descriptor) != 0) fail(errno);
}

void OutputFile::fail(int error) const { throw std::runtime_error(m_path + ": " + std::strerror(error)); }

}  // namespace velmora
