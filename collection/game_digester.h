#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "chess/moves/position.h"
#include "collection/game_columns.h"
#include "collection/game_spans.h"
#include "collection/header_tags.h"
#include "collection/main_line.h"
#include "collection/opening_names.h"
#include "collection/position_record.h"

namespace velmora {

/// Texts by number, each once.
///
/// 0 is the empty text.
class TextNumbers {
public:
    TextNumbers() { clear(); }
    void clear();
    std::uint32_t number_of(std::string_view text);
    /// By number.
    const std::vector<std::string>& texts() const { return m_texts; }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
    };
    std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> m_numbers;
    std::vector<std::string> m_texts;
};

/// What was found in some games that stand one behind the other in the file: games are numbered from 0, texts
/// by the batch's own table. Whoever puts batches together renumbers both.
struct GameBatch {
    std::vector<GameColumns> games;
    std::vector<std::string> start_fens;  ///< by game, empty for the normal start
    std::vector<PositionRecord> positions;
    TextNumbers texts;
    std::uint64_t end = 0;         ///< offset behind the last game
    bool ends_with_result = true;  ///< of the last game

    void clear();
};

/// Turns the text of a game into its columns and its positions. One for each thread.
class GameDigester {
public:
    /// Adds a game to the batch and returns how many bytes of the text it has.
    ///
    /// A game is replayed up to its first move that can't be made, and is listed with that; nothing throws.
    std::size_t add(const GameSpan& span, GameBatch& batch);

private:
    bool set_up(const HeaderTags& tags, GameColumns& game);
    void replay(MainLine& line, GameColumns& game, GameBatch& batch);
    void fill_tags(const HeaderTags& tags, GameColumns& game, GameBatch& batch);

    ChessPosition m_start;  // the usual one
    ChessPosition m_position;
    OpeningNames m_openings;
    const EcoRow* m_opening = nullptr;  // of the game that is read
    bool m_started = false;
};

}  // namespace velmora
