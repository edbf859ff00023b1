#pragma once

#include <cstdint>
#include <stop_token>
#include <string>
#include <vector>

#include "game/foreign/game_repair.h"
#include "game/foreign/game_splitter.h"
#include "game/foreign/source_lines.h"

namespace velmora {

/// A file of games in any encoding, cut for the second reader. One game is in memory at a time.
///
/// Not for two threads at once.
class ForeignFile {
public:
    /// Once `leaving` is stopped, the file is at its end.
    explicit ForeignFile(std::stop_token leaving = {});
    ForeignFile(const ForeignFile&) = delete;  // the splitter points into the object
    ForeignFile& operator=(const ForeignFile&) = delete;

    /// False when it can't be opened.
    bool open(const std::string& path);

    /// The next game; false at the end.
    bool next(ForeignText& game);

    /// The game at a byte offset, its lines counted from 1; false when there is none.
    bool read_at(std::uint64_t offset, ForeignText& game);

    bool is_utf16() const { return m_lines.encoding() != Encoding::bytes; }

    std::uint64_t position() const { return m_lines.position(); }
    std::uint64_t file_size() const { return m_lines.file_size(); }

private:
    FileLines m_lines;
    GameSplitter m_splitter;
};

/// A game of a file, read by whichever reader keeps more of it.
struct AnyGame {
    std::string text;  ///< in the strict form, or as the strict reader has it; empty when there is none
    std::vector<Remark> remarks;  ///< of the second reader; empty when the strict one has read it
};

/// The game that begins at a byte offset of a file, such as a list of its games tells it. Where the strict
/// reader keeps all of it, its text is what PgnFile gives, to the byte. Throws pgn_error for a game of which
/// neither reader has anything.
AnyGame read_any_game(const std::string& path, std::uint64_t offset);

/// Whether a file is in UTF-16, of which the strict reader has nothing.
bool is_utf16_file(const std::string& path);

/// A game of a file that the strict reader loses or doesn't list.
struct SurveyedGame {
    std::uint64_t offset = 0;  ///< in bytes
    std::uint64_t size = 0;    ///< of its text, in bytes
    ForeignGame game;
    bool is_repaired = false;  ///< else the strict reader's text is as good
};

/// Goes through a file for the games that need the second reader.
///
/// All others cost a look at each byte.
class FileSurvey {
public:
    explicit FileSurvey(const std::string& path, std::stop_token leaving = {});

    /// The next such game; false at the end of the file.
    bool next(SurveyedGame& found);

    /// Games passed so far, those included that need nothing.
    std::uint64_t games() const { return m_games; }
    std::uint64_t position() const { return m_file.position(); }
    std::uint64_t file_size() const { return m_file.file_size(); }

private:
    ForeignFile m_file;
    bool m_is_open;
    std::uint64_t m_games = 0;
    ForeignText m_text;
};

}  // namespace velmora
