// Matches of chess engines, many and fast, for scripts and for those who write engines. Exit status: 0 done,
// 1 an engine or the disk, 2 the command line, 130 broken off by a signal.

#include <csignal>
#include <iostream>
#include <utility>

#include "matches/match_state.h"
#include "tools/match/match_run.h"
#include "tools/match/options.h"
#include "tools/match/reporter.h"

namespace {

using namespace velmora;
using Words = std::vector<std::string>;

/// Joins states and prints what they say together; the first one's command line tells how to count.
int merge(const Words& files) {
    if (files.empty()) throw UsageError("merge wants the states of a match");
    std::vector<MatchState> states(files.size());
    for (std::size_t i = 0; i < files.size(); ++i) states[i].read(files[i]);
    std::vector<bool> counted;
    std::vector<StateGame> games;
    for (const auto& state : states) {
        for (const auto& game : state.games()) {
            if (game.number >= counted.size()) counted.resize(game.number + 1);
            if (!counted[game.number]) games.push_back(game);
            counted[game.number] = true;
        }
    }
    const auto options = MatchOptions::parse(states.front().words());
    const auto engines = options.pool.engines.size();
    Standings standings(engines);
    for (const auto& game : games) standings.add(game.white, game.black, game.result, game.encounter);
    Reporter(std::cout, options, standings.games()).ended(standings);
    return 0;
}

int run(const Words& words) {
    if (!words.empty() && words.front() == "merge") return merge({words.begin() + 1, words.end()});
    auto options = MatchOptions::parse(words);
    if (options.help) {
        std::cout << MatchOptions::help_text();
        return 0;
    }
    MatchState state;
    if (!options.resume.empty()) {
        state.resume(options.resume);
        options = MatchOptions::parse(state.words());
    } else if (!options.state.empty()) {
        state.create(options.state, words);
    }
    return run_match(std::move(options), state);
}

/// Writes to an engine that has ended, to a closed pipe or beyond a limit of the system are errors like
/// others; the two signals that end a match are waited for on a thread of their own.
void set_up_signals() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGINT);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGUSR1);  // ends the thread that waits for the two
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

}  // namespace

int main(int argc, char** argv) {
    set_up_signals();
    try {
        return run(Words(argv + 1, argv + argc));
    } catch (const UsageError& error) {
        std::cerr << "velmora-match: " << error.what() << "\nvelmora-match -help tells more.\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "velmora-match: " << error.what() << '\n';
        return 1;
    }
}
