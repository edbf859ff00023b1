#pragma once

#include "matches/match_state.h"
#include "tools/match/options.h"

namespace velmora {

/// Plays the games of the options that the state doesn't have, and prints what happens on standard output.
/// SIGINT and SIGTERM break the running games off, which then count as not played; a second one ends the
/// program at once. Gives the exit status. REQUIRES: both signals, and SIGUSR1, are blocked in all threads.
int run_match(MatchOptions options, MatchState& state);

}  // namespace velmora
