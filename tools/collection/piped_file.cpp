#include "tools/collection/piped_file.h"

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <unistd.h>
#include <vector>

#include "collection/output_file.h"

namespace velmora {

PipedFile::PipedFile(int descriptor) {
    std::string name = (std::filesystem::temp_directory_path() / "velmora-collection-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error(name + ": " + std::strerror(errno));
    m_directory = name;
    try {
        copy(descriptor);
    } catch (...) {
        std::filesystem::remove_all(m_directory);
        throw;
    }
}

PipedFile::~PipedFile() {
    std::error_code error;
    std::filesystem::remove_all(m_directory, error);
}

void PipedFile::copy(int descriptor) const {
    OutputFile file(path(), OutputFile::Kind::fresh);
    std::vector<char> block(std::size_t{1} << 20);
    std::uint64_t size = 0;
    while (true) {
        const auto count = ::read(descriptor, block.data(), block.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) throw std::runtime_error(std::string("standard input: ") + std::strerror(errno));
        if (count == 0) return;
        file.write_at(size, {block.data(), static_cast<std::size_t>(count)});
        size += static_cast<std::uint64_t>(count);
    }
}

}  // namespace velmora
