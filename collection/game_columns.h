#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace velmora {

enum class GameResult : std::uint8_t { unknown, white_wins, black_wins, draw };

/// Where a game starts from.
enum class GameStart : std::uint8_t { normal, position, chess960 };

/// Why a game is indexed no further than its ply count.
enum class GameRemark : std::uint8_t {
    none,
    illegal_move,  ///< or a word that is no move at all
    null_move,
    bad_start,  ///< its FEN can't be read
    cut,        ///< longer than any game; see GameSpans::longest
};
inline constexpr std::size_t remark_count = 5;

/// What can be compared of one game: numbers, and texts as numbers of the text table. Games stand one behind
/// the other in a file that is mapped, so this is also its layout, in the byte order of the machine.
///
/// Beside the database, which has the same in readable form. A filter over a million games has to be done
/// between two keys that are typed: by SQLite it takes ten times as long as it may, by a walk over these 64
/// megabytes a few milliseconds.
struct GameColumns {
    std::uint64_t offset = 0;  ///< of the game's first bracket in the PGN file
    std::uint32_t length = 0;  ///< bytes of the game in the file
    std::uint32_t plies = 0;   ///< that could be replayed
    std::uint32_t white = 0;
    std::uint32_t black = 0;
    std::uint32_t event = 0;
    std::uint32_t site = 0;
    std::uint32_t round = 0;
    std::uint32_t opening = 0;
    std::uint32_t remark_word = 0;  ///< the word at which reading stopped
    std::uint32_t date = 0;         ///< year * 10000 + month * 100 + day, zeros for what is unknown
    std::uint16_t white_elo = 0;    ///< 0 for unknown
    std::uint16_t black_elo = 0;
    std::uint16_t eco = 0;  ///< see eco_number()
    GameResult result = GameResult::unknown;
    GameStart start = GameStart::normal;
    GameRemark remark = GameRemark::none;
    std::uint8_t unused[7] = {};  // spelled out, so that a file has no bytes that nobody has set

    std::uint32_t year() const { return date / 10000; }
};

static_assert(sizeof(GameColumns) == 64 && std::is_trivially_copyable_v<GameColumns>);

/// The texts of a game that stand in the text table, by these members.
inline constexpr std::uint32_t GameColumns::*text_columns[] = {
    &GameColumns::white, &GameColumns::black,   &GameColumns::event,      &GameColumns::site,
    &GameColumns::round, &GameColumns::opening, &GameColumns::remark_word};

/// "B90" as 1 + 100 * 1 + 90, so that codes compare as they sort; 0 for a text that begins otherwise.
std::uint16_t eco_number(std::string_view code);
/// The other way round; empty for 0.
std::string eco_text(std::uint16_t number);

/// "2023.05.??" as 20230500; 0 when no year stands there.
std::uint32_t date_number(std::string_view date);
/// "2023.05.??", "????.??.??" for 0.
std::string date_text(std::uint32_t number);

GameResult result_of(std::string_view word);
/// "1-0", "0-1", "1/2-1/2", "*".
std::string_view result_text(GameResult result);

/// In words, for lists; empty for none.
std::string_view remark_text(GameRemark remark);

}  // namespace velmora
