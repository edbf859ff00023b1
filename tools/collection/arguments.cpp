#include "tools/collection/arguments.h"

#include <algorithm>
#include <array>

#include "base/text.h"

namespace velmora {

namespace {

using Command = Arguments::Command;

/// A command, how many words it wants behind the file, and the options that it takes.
struct Form {
    std::string_view name;
    Command command;
    bool wants_filter;
    std::string_view options;  ///< each between blanks
};

constexpr auto forms = std::to_array<Form>({
    {"index", Command::index, false, " --jobs "},
    {"explore", Command::explore, false, " --jobs --fen --json "},
    {"find", Command::find, true, " --jobs --fen --pgn "},
    {"stats", Command::stats, false, " --jobs "},
});

unsigned job_count(std::string_view value) {
    constexpr unsigned most = 64;
    const auto jobs = text::strict_integer<unsigned>(value);
    if (!jobs || *jobs < 1 || *jobs > most) throw UsageError("--jobs wants a number from 1 to 64");
    return *jobs;
}

}  // namespace

std::string_view Arguments::help_text() {
    return "velmora-collection index FILE                         make the index of a PGN file, or renew it\n"
           "velmora-collection explore FILE [--fen FEN] [--json]  what was played from a position\n"
           "velmora-collection find FILE FILTER [--fen FEN] [--pgn]\n"
           "                                                      games that meet a filter, as rows or as "
           "PGN\n"
           "velmora-collection stats FILE                         what the collection holds\n"
           "\n"
           "FILE is a PGN file, or - for standard input. An index is made where there is none, in\n"
           "$XDG_CACHE_HOME or ~/.cache below velmora/collections.\n"
           "\n"
           "--jobs N  threads that index, one on each core otherwise\n"
           "--fen FEN the position; explore takes the start position otherwise\n"
           "--json    one object for programs\n"
           "--pgn     the games' texts as they stand in the file\n"
           "\n"
           "A filter has words that match players, event, site and opening, and conditions:\n"
           "white: black: event: site: opening: round:, elo>2500 year:2019-2023 eco:B90-B99 moves<25\n"
           "result:1-0. An empty filter, '', has all games.\n";
}

Arguments Arguments::parse(const std::vector<std::string_view>& words) {
    Arguments arguments;
    if (words.empty()) throw UsageError("a command is missing: index, explore, find or stats");
    if (words.front() == "--help" || words.front() == "-h" || words.front() == "help") return arguments;
    const auto* const form =
        std::find_if(forms.begin(), forms.end(), [&](const Form& f) { return f.name == words.front(); });
    if (form == forms.end()) throw UsageError("no such command: " + std::string(words.front()));
    arguments.command = form->command;

    std::vector<std::string_view> operands;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const auto word = words[i];
        if (!word.starts_with("--")) {
            operands.push_back(word);
            continue;
        }
        if (word == "--help") return Arguments();
        if (form->options.find(' ' + std::string(word) + ' ') == std::string_view::npos) {
            throw UsageError(std::string(form->name) + " has no option " + std::string(word));
        }
        if (word == "--json" || word == "--pgn") {
            (word == "--json" ? arguments.json : arguments.pgn) = true;
            continue;
        }
        if (++i == words.size()) throw UsageError(std::string(word) + " wants a value");
        if (word == "--fen") arguments.fen = words[i];
        if (word == "--jobs") arguments.jobs = job_count(words[i]);
    }
    const std::size_t wanted = form->wants_filter ? 2 : 1;
    if (operands.size() != wanted) {
        throw UsageError(std::string(form->name) +
                         (form->wants_filter ? " wants a file and a filter" : " wants one file"));
    }
    arguments.file = operands.front();
    if (form->wants_filter) arguments.filter = operands.back();
    return arguments;
}

}  // namespace velmora
