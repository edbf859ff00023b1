#pragma once

#include <string>
#include <string_view>

namespace velmora {

/// The per-user directory of the program, made together with its "tournaments" when it is asked for.
///
/// It is found from the working directory alone: below /home/<user> it is that user's, anywhere else it is
/// the working directory itself.
///
/// Neither $HOME nor the password file is asked: who starts the program elsewhere, in a directory of a
/// stick or of a test, gets all files there and leaves none behind.
class HomeDir {
public:
    /// Finds and creates the directory. Throws std::runtime_error when it cannot be created.
    HomeDir();

    /// With a trailing slash.
    const std::string& path() const { return m_path; }
    /// The directory of the tournament files, with a trailing slash.
    std::string tournaments_path() const { return m_path + "tournaments/"; }

    /// The directory that belongs to a working directory; touches no file.
    static std::string path_for(std::string_view working_directory);

private:
    std::string m_path;
};

}  // namespace velmora
