#pragma once

#include <cstdint>
#include <ext/stdio_filebuf.h>
#include <istream>
#include <optional>
#include <string>

namespace velmora {

/// The descriptor of a plain file that is open for reading; every reader of the program opens its file here.
///
/// A name can come from somebody else's file, and what stands under it need not end: a pipe without a writer
/// would make its reader wait for ever, a device such as /dev/zero would fill the memory. So nothing but a
/// plain file is opened, or a link to one, and it is the opened file that is looked at, not its name a moment
/// before.
class RegularFile {
public:
    RegularFile() = default;
    explicit RegularFile(const std::string& path) { open(path); }
    ~RegularFile() { close(); }
    RegularFile(const RegularFile&) = delete;  // owns a descriptor
    RegularFile& operator=(const RegularFile&) = delete;

    /// Closes an open file and opens `path`; false when that can't be done, and then fault() tells why. Never
    /// waits.
    bool open(const std::string& path);
    void close();
    bool is_open() const { return m_descriptor >= 0; }

    /// The last open() found no file of that name.
    ///
    /// A name that is too long, or one below a file, is no file either: callers that make do without one
    /// need not tell these apart.
    bool is_missing() const { return m_is_missing; }
    /// Why the last open() failed, in words without the path; empty when it didn't.
    const std::string& fault() const { return m_fault; }

    /// The descriptor, closed on exec; -1 when nothing is open.
    int descriptor() const { return m_descriptor; }
    /// The same, which from here on is the caller's to close.
    int release();

    /// The size of the file now, in bytes; 0 when nothing is open.
    std::uint64_t size() const;

private:
    int m_descriptor = -1;
    bool m_is_missing = false;
    std::string m_fault;
};

/// A plain file as a stream of bytes; what RegularFile doesn't open is a stream that has failed.
///
/// The standard file stream opens by name and takes whatever stands there; this one gets the descriptor
/// that was looked at.
class RegularFileStream : public std::istream {
public:
    explicit RegularFileStream(const std::string& path);

    /// Of the opening, as RegularFile tells it.
    bool is_missing() const { return m_file.is_missing(); }
    const std::string& fault() const { return m_file.fault(); }

    /// The size when it was opened, in bytes.
    std::uint64_t file_size() const { return m_size; }

private:
    RegularFile m_file;
    const std::uint64_t m_size;
    __gnu_cxx::stdio_filebuf<char> m_buffer;  // has the descriptor from m_file
};

/// "<path>: not a regular file", or what else keeps the file from being read. Nothing when it can be read,
/// and nothing when there is no such file, which each caller takes in its own way.
///
/// For callers whose own reader tells nothing but that it failed.
std::optional<std::string> reading_fault(const std::string& path);

}  // namespace velmora
