#pragma once

#include <string>
#include <vector>

namespace velmora {

/// Side length of the board in pixels when the command line names none.
inline constexpr int default_board_size = 560;

/// What the command line asks for.
///
/// A value that is decided on before the toolkit is made: "--help" has to answer where there is no display.
struct CommandLine {
    int board_size = default_board_size;
    bool has_board_size = false;
    std::vector<std::string> files;  ///< to be opened, whether they exist or not
    std::string answer;              ///< what to print instead of opening the window, empty for nothing
};

/// Reads the arguments, program name first: a board size, files, "--help", "-h" and "--version".
///
/// The size is an argument that begins with "-s", whatever follows these two characters, and the argument
/// behind it; a size that is no number is 0. It counts when nothing but files that exist, or whose names end
/// in .pgn, .fen, .epd or .bin, stands beside it. Other arguments with a hyphen mean nothing; those without
/// one are files.
CommandLine parse_command_line(const std::vector<std::string>& arguments);

}  // namespace velmora
