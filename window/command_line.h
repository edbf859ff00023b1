#pragma once

#include <string>
#include <vector>

namespace velmora {

/// Side length of the board in pixels when the command line names none.
inline constexpr int default_board_size = 560;

/// What the command line asks for.
struct CommandLine {
    int board_size = default_board_size;
    bool has_board_size = false;
    std::string file;  ///< a game or position file to open, empty for none
};

/// Reads the arguments, program name first: a board size, a file, or both in either order.
///
/// The size is an argument that begins with "-s", whatever follows these two characters, and the argument
/// behind it; a size that is no number is 0. A file is an argument that ends in .pgn, .fen or .epd and
/// exists. With any other number of arguments they mean nothing.
CommandLine parse_command_line(const std::vector<std::string>& arguments);

}  // namespace velmora
