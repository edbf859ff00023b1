#pragma once

#include <cstddef>
#include <string>

namespace velmora {

/// A file in the address space, for random reading; its pages come in as they are touched.
class MappedFile {
public:
    MappedFile() = default;
    ~MappedFile() { close(); }
    MappedFile(const MappedFile&) = delete;  // owns a descriptor and a mapping
    MappedFile& operator=(const MappedFile&) = delete;

    /// Closes an open file and opens `path`; false for what can't be opened or mapped, a directory included.
    bool open(const std::string& path);
    void close();
    bool is_open() const { return m_descriptor >= 0; }

    /// The size when it was opened.
    std::size_t size() const { return m_size; }

    /// How much of the mapping may be touched now: less than size() when the file was cut short since, whose
    /// lost pages would end the program.
    std::size_t readable_size() const;

    /// REQUIRES: the bytes that are read lie below readable_size().
    const unsigned char* data() const { return m_data; }

private:
    int m_descriptor = -1;
    const unsigned char* m_data = nullptr;
    std::size_t m_size = 0;
};

}  // namespace velmora
