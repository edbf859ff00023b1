#pragma once

#include <iosfwd>
#include <string>

#include "tournament/tournament_data.h"

/// The text form of a tournament: one keyword a line, the participants above the games.
///
/// Text, so that a person can look into a tournament or mend it. Participants come first because games
/// name them by their id, in one pass.
namespace velmora::tournament_file {

/// Reads all entries of `in` into `data`: settings replace those that stand there, participants and games are
/// appended. Unknown keywords are reported on standard error and skipped.
///
/// When it throws, `fault` tells the line that could not be read, by its number and text: std::logic_error
/// "Tournament::load    error" for a game line with a missing or bad field,
/// std::out_of_range for a game of a participant that stands not above it, and what Level throws for an
/// unknown time control; what has been read so far stays in `data`.
///
/// Unknown keywords are passed over so that files of other versions can be read.
void read(std::istream& in, TournamentData& data, std::string& fault);

/// The file's text. Ratings and handicaps are not part of it, an empty opening book neither.
std::string to_text(const TournamentData& data);

/// What stands behind the word "game": right-aligned columns, in which a longer number pushes what follows.
std::string game_text(const TournamentGame& game);

}  // namespace velmora::tournament_file
