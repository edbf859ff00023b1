#pragma once

#include <string>

namespace velmora {

/// What closes the last game of a PGN file that a writer has left unfinished, so that a game which is
/// appended behind it is a game of its own: empty where nothing is open and the last line has its end.
///
/// A program that is killed while it writes leaves any part of a game. The reader then takes what follows for
/// the rest of an open tag, comment or game. The closing text ends what is open at the end of the file, from
/// the inside out: a tag's value and the tag, a comment, variations, the line; then the game, which has no
/// result. So the torn game itself is read as far as it goes.
///
/// The reader itself tells what is open. It is started at a line that begins an event tag, which is the first
/// of every game that the program writes: at the first one in the last 64 KiB, or farther back where a game
/// is longer; so a few games are read, whatever the size of the file. Such a line may stand within a comment,
/// of a person who typed one: then the reader takes the rest of that comment for moves up to its closing
/// brace, and from there on is in step again, since comments don't nest. A file without such a line in its
/// last 16 MiB is no archive of this program; it is read from there, and at the next brace the reader is in
/// step, too. Behind a damaged game, whose end nobody knows, readers look for the next tag at the start of a
/// line: there only the line is closed.
std::string closing_of_torn_tail(const std::string& path);

}  // namespace velmora
