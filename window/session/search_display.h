#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "analysis/evaluation.h"
#include "analysis/san_line.h"
#include "analysis/search_lines.h"
#include "analysis/shown_search.h"
#include "channel/to_window.h"
#include "engine/store/engine_variables.h"
#include "window/session/game_session.h"
#include "window/session/manager_link.h"
#include "window/session/message_dispatcher.h"
#include "window/session/seated_engine.h"
#include "window/session/window_frame.h"

namespace velmora {

/// What the engines' searches look like beside the board: of one engine, or in a match of White's and
/// Black's.
///
/// It gathers lines as they come, and makes texts of them only when it is asked: engines say a thousand lines
/// a second, and ten times a second is as often as anybody can read. Each search belongs to the position, and
/// to the place in the record, at which its first line came; when another position is shown, the next line
/// begins another search.
class SearchDisplay {
public:
    /// What an engine searches, best move first.
    struct Hint {
        Square from, to;
    };

    /// @param engine_variables  the referee's record of the engine in the first seat; throws std::logic_error
    ///                          when there is none
    SearchDisplay(GameSession& session, const WindowFrame& frame, const SeatedEngine& engine,
                  MessageDispatcher& dispatcher, ManagerLink& manager,
                  std::function<EngineVariables()> engine_variables);
    SearchDisplay(const SearchDisplay&) = delete;  // session and dispatcher know where it is
    SearchDisplay& operator=(const SearchDisplay&) = delete;

    /// Whether something has changed since the last call of shown().
    bool has_news() const { return m_news; }
    /// The searches as they are shown: none without an engine.
    std::vector<ShownSearch> shown();

    /// What the engine that analyses thinks of the position on the board, and after how many plies; nothing
    /// in any other mode.
    std::optional<Evaluation> evaluation() const;
    std::int32_t depth() const { return m_searches[0].lines.figures().depth.value_or(0); }
    /// The first moves of the lines while an engine analyses; none in any other mode.
    std::vector<Hint> best_moves() const;

    /// A line's moves up to and with one of them, the line's first move counting 0. Empty for a place where
    /// nothing stands.
    std::vector<Move> moves_up_to(std::size_t search, std::size_t line, std::size_t move) const;
    /// The node of the record from which a search's lines begin.
    std::int32_t node_of(std::size_t search) const;
    /// The FEN behind that move; empty for a place where nothing stands.
    std::string position_behind_move(std::size_t search, std::size_t line, std::size_t move) const;

    /// Asks the engine for one line more or fewer, by its own option.
    void ask_for_lines(int change);
    /// The person wants to see what the engine thinks of the game that is being played.
    void uncover();

private:
    struct Search {
        ChessPosition position;
        std::int32_t node = 0;
        bool outdated = true;  // the next line belongs to another search
        SearchLines lines;
    };

    bool in_match() const { return m_frame.mode() == Mode::tournament; }
    std::size_t search_of(Side side) const { return in_match() && side == Side::black ? 1 : 0; }
    std::vector<LineMove> read(const Search& search, std::size_t line) const;
    ShownSearch show(std::size_t index);
    void take(const to_window::SearchOutput& output);
    void begin_anew(bool clear);
    std::optional<Option> lines_option() const;

    GameSession& m_session;
    const WindowFrame& m_frame;
    const SeatedEngine& m_engine;
    ManagerLink& m_manager;
    const std::function<EngineVariables()> m_engine_variables;
    std::vector<Search> m_searches{2};
    bool m_news = true;
    bool m_uncovered = false;
};

}  // namespace velmora
