#include "window/command_line.h"

#include <filesystem>

#include "channel/text.h"
#include "window/opened_file.h"

namespace velmora {

namespace {

bool is_openable(const std::string& path) {
    const OpenedFile kind = kind_of_file(path);
    std::error_code fault;
    return (kind == OpenedFile::game || kind == OpenedFile::position) &&
           std::filesystem::is_regular_file(path, fault);
}

}  // namespace

CommandLine parse_command_line(const std::vector<std::string>& arguments) {
    CommandLine result;
    std::vector<std::string> left(arguments.begin() + (arguments.empty() ? 0 : 1), arguments.end());
    if (left.size() == 1 || left.size() == 3) {
        // A lone argument is a file, and so is what stands before or behind a size.
        const auto file = is_openable(left.front()) ? left.begin() : left.end() - 1;
        if (is_openable(*file)) {
            result.file = *file;
            left.erase(file);
        }
    }
    if (left.size() == 2 && left.front().starts_with("-s")) {
        result.board_size = text::WordReader(left.back()).integer<int>().value_or(0);
        result.has_board_size = true;
    }
    return result;
}

}  // namespace velmora
