#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace velmora {

/// A file that is written at places of the writer's choice, by several threads if need be.
///
/// A full disk or a file that is too large throws std::runtime_error with path and reason; streams would note
/// it and go on.
class OutputFile {
public:
    enum class Kind { fresh, existing, nameless };

    /// Opens a file of that name, made anew (fresh) or made when it isn't there (existing), or one without a
    /// name in the directory `path`, which is gone with the process whatever ends it.
    OutputFile(const std::string& path, Kind kind);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;  // owns a descriptor
    OutputFile& operator=(const OutputFile&) = delete;

    void write_at(std::uint64_t offset, std::string_view bytes);
    /// REQUIRES: all of it has been written.
    void read_at(std::uint64_t offset, std::span<char> bytes) const;

    void resize(std::uint64_t size);
    /// Waits until the disk has it.
    void sync();

private:
    [[noreturn]] void fail(int error) const;

    std::string m_path;
    int m_descriptor;
};

/// The bytes of a value that has no pointers in it.
template <class T>
std::string_view bytes_of(std::span<const T> values) {
    return {reinterpret_cast<const char*>(values.data()), values.size_bytes()};
}

}  // namespace velmora
