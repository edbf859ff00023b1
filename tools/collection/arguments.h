#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A command line that can't be carried out; the text is for the user.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What the command line asks for.
struct Arguments {
    enum class Command { help, index, explore, find, stats };
    Command command = Command::help;
    std::string file;  ///< "-" for standard input
    std::string filter;
    std::optional<std::string> fen;
    unsigned jobs = 0;  ///< 0 for one on each core
    bool json = false;
    bool pgn = false;

    /// Reads the words behind the program's name. Options may stand anywhere behind the command. Throws
    /// UsageError.
    static Arguments parse(const std::vector<std::string_view>& words);

    /// What `--help` prints.
    static std::string_view help_text();
};

}  // namespace velmora
