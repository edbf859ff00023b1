#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace velmora {

/// A directory of its own for a test, removed with all that is in it.
class ScratchDirectory {
public:
    ScratchDirectory() {
        std::string name = (std::filesystem::temp_directory_path() / "velmora_test_XXXXXX").string();
        m_directory = ::mkdtemp(name.data());
    }
    ~ScratchDirectory() { std::filesystem::remove_all(m_directory); }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    std::string path(const std::string& name) const { return (m_directory / name).string(); }

    /// Writes a file and gives its path.
    std::string write(const std::string& name, std::string_view content) const {
        std::ofstream(path(name), std::ios::binary) << content;
        return path(name);
    }

    std::string content(const std::string& name) const {
        std::ostringstream text;
        text << std::ifstream(path(name), std::ios::binary).rdbuf();
        return text.str();
    }

private:
    std::filesystem::path m_directory;
};

}  // namespace velmora
