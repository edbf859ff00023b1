#pragma once

#include <cstdint>
#include <cstring>

#include "chess/board/move.h"
#include "chess/board/square.h"

namespace velmora {

/// That a position came up in a game, and the move that was played there.
struct PositionRecord {
    std::uint64_t key = 0;   ///< position_key()
    std::uint32_t game = 0;  ///< from 0
    std::uint16_t move = 0;  ///< see move_code(); 0 where the game ends
};

/// The 15 bits of a move that name it in its position: to, from, and how it is made; 0 for none.
inline constexpr int move_bits = 15;
inline constexpr std::uint16_t move_mask = (1U << move_bits) - 1;
inline std::uint16_t move_code(Move move) { return static_cast<std::uint16_t>(move.word() & move_mask); }

/// The move of such a code, without piece, capture and check: find_legal() completes it.
inline Move move_of_code(std::uint16_t code) { return Move::from_word(code); }

/// How records stand in a sorted file, ten bytes each: the low 48 bits have the key's next 33 bits and the
/// move, the other 32 the game; of the key's front, the place in the file tells the rest.
///
/// With 128 records to a stretch of keys, a position that isn't there is taken for one that is once in
/// 67 million questions, whatever the size of the collection; each bit less would save 1 % of the file and
/// double that. A record of 16 bytes would be simpler and make the index larger than its PGN file.
namespace packed_record {

inline constexpr std::size_t size = 10;
inline constexpr int key_bits = 33;

/// REQUIRES: rest < 2^48.
inline void store(char* at, std::uint64_t rest, std::uint32_t game) {
    std::memcpy(at, &rest, 6);
    std::memcpy(at + 6, &game, 4);
}

/// Key bits and move.
inline std::uint64_t rest(const unsigned char* at) {
    std::uint64_t value = 0;
    std::memcpy(&value, at, 6);
    return value;
}
inline std::uint32_t game(const unsigned char* at) {
    std::uint32_t value = 0;
    std::memcpy(&value, at + 6, 4);
    return value;
}

}  // namespace packed_record

}  // namespace velmora
