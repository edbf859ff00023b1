#pragma once

#include <string>

namespace velmora {

/// A directory with all that a pipe gives in a file, and room for its index; gone with the object.
///
/// An index wants to read its file at any place, which a pipe can't give.
class PipedFile {
public:
    /// Reads the descriptor to its end. Throws std::runtime_error when that or the writing fails.
    explicit PipedFile(int descriptor);
    ~PipedFile();
    PipedFile(const PipedFile&) = delete;  // owns a directory
    PipedFile& operator=(const PipedFile&) = delete;

    std::string path() const { return m_directory + "/games.pgn"; }
    std::string index_directory() const { return m_directory + "/index"; }

private:
    void copy(int descriptor) const;

    std::string m_directory;
};

}  // namespace velmora
