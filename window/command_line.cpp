#include "window/command_line.h"

#include <algorithm>
#include <filesystem>

#include "base/program.h"
#include "base/text.h"
#include "window/flows/opened_file.h"

namespace velmora {

namespace {

constexpr const char* help = R"(Usage: velmora [-s SIZE] [FILE]
Play, analyse and study chess.

  -s SIZE     the side of the board in pixels, from 360 to 1200
  FILE        games (.pgn), positions (.fen, .epd) or a Polyglot book (.bin) to open
  -h, --help  print this text and end
  --version   print the version and end

"man velmora" tells of keys, files and variables.
)";

bool is_file(const std::string& argument) {
    std::error_code fault;
    return !argument.starts_with('-') &&
           (kind_of_file(argument) != OpenedFile::none || std::filesystem::exists(argument, fault));
}

}  // namespace

CommandLine parse_command_line(const std::vector<std::string>& arguments) {
    CommandLine result;
    std::vector<std::string> left(arguments.begin() + (arguments.empty() ? 0 : 1), arguments.end());
    const auto size = std::ranges::find_if(left, [](const auto& text) { return text.starts_with("-s"); });
    if (left.end() - size >= 2) {
        const std::string value = size[1];
        left.erase(size, size + 2);
        result.has_board_size = std::ranges::all_of(left, is_file);
        if (result.has_board_size) result.board_size = text::WordReader(value).integer<int>().value_or(0);
    }
    for (const std::string& argument : left) {
        if (argument == "-h" || argument == "--help") {
            result.answer = help;
        } else if (argument == "--version") {
            result.answer = std::string(program_name) + " " + program_version + "\n";
        } else if (!argument.starts_with('-')) {
            result.files.push_back(argument);
        }
    }
    return result;
}

}  // namespace velmora
