#include "tools/velmora_console/review_arguments.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/text.h"

namespace velmora {

namespace {

constexpr std::array<std::string_view, 6> options = {"--review",   "--engine", "--side",
                                                     "--movetime", "--depth",  "--nodes"};

Level level_of(const std::string& mode, std::string_view option, std::string_view value) {
    const auto amount = text::strict_integer<std::int32_t>(value);
    if (!amount || *amount < 1) throw UsageError(std::string(option) + " wants a number above 0");
    return Level("fixed_" + mode + ' ' + std::to_string(*amount));
}

}  // namespace

std::string_view ReviewArguments::help_text() {
    return "velmora-console <commands >lines\n"
           "    the referee: commands on standard input, its lines on standard output\n"
           "velmora-console --review FILE --engine ENGINE [--movetime MS | --depth N | --nodes N]\n"
           "                [--side white|black|both]\n"
           "    has an engine review all games of a PGN file and writes them to standard output;\n"
           "    ENGINE is a program or the name of an installed engine, 500 ms a move is the default\n";
}

ReviewArguments ReviewArguments::parse(const std::vector<std::string_view>& words) {
    ReviewArguments arguments;
    for (std::size_t i = 0; i < words.size(); i += 2) {
        const auto option = words[i];
        if (std::ranges::find(options, option) == options.end()) {
            throw UsageError("no option: " + std::string(option));
        }
        if (i + 1 == words.size()) throw UsageError(std::string(option) + " wants a value");
        const auto value = words[i + 1];
        if (option == "--review") {
            arguments.file = value;
        } else if (option == "--engine") {
            arguments.engine = value;
        } else if (option == "--side") {
            if (value != "white" && value != "black" && value != "both") {
                throw UsageError("--side wants white, black or both");
            }
            arguments.settings.white = value != "black";
            arguments.settings.black = value != "white";
        } else {
            arguments.settings.level = level_of(std::string(option.substr(2)), option, value);
        }
    }
    if (arguments.file.empty()) throw UsageError("--review FILE is missing");
    if (arguments.engine.empty()) throw UsageError("--engine ENGINE is missing");
    return arguments;
}

}  // namespace velmora
