#pragma once

#include <cstddef>
#include <string>

#include "base/regular_file.h"

namespace velmora {

/// A file in the address space, for random reading; its pages come in as they are touched.
///
/// Books have hundreds of megabytes, and a lookup wants a few of their pages; the kernel keeps those that
/// are used and drops the others under pressure. Reading ahead is switched off, as the next page is hardly
/// ever the one that is wanted.
class MappedFile {
public:
    MappedFile() = default;
    ~MappedFile() { close(); }
    MappedFile(const MappedFile&) = delete;  // owns a mapping
    MappedFile& operator=(const MappedFile&) = delete;

    /// Closes an open file and opens `path`; false for what is no plain file and for what can't be
    /// opened or mapped.
    bool open(const std::string& path);
    void close();
    bool is_open() const { return m_file.is_open(); }
    /// Why it can't be read, though there is such a file; empty otherwise.
    std::string fault() const { return m_file.is_missing() ? std::string() : m_file.fault(); }

    /// The size when it was opened.
    std::size_t size() const { return m_size; }

    /// How much of the mapping may be touched now: less than size() when the file was cut short since, whose
    /// lost pages would end the program.
    ///
    /// Asked anew at each lookup. That leaves a gap between the question and the reading which no mapping
    /// can close; it is as short as can be.
    std::size_t readable_size() const;

    /// REQUIRES: the bytes that are read lie below readable_size().
    const unsigned char* data() const { return m_data; }

private:
    RegularFile m_file;
    const unsigned char* m_data = nullptr;
    std::size_t m_size = 0;
};

}  // namespace velmora
