#include "window/table/game_keeper.h"

#include <algorithm>
#include <iostream>
#include <variant>

#include "chess/moves/position.h"

namespace velmora {

GameKeeper::GameKeeper(GameSession& session, ClockView& clocks, WindowFrame& frame, Dialogs& dialogs,
                       ModeController& modes, ManagerLink& manager, const SeatedEngine& engine,
                       MessageDispatcher& dispatcher, Notice& notice, const std::string& directory)
    : m_session(session),
      m_clocks(clocks),
      m_frame(frame),
      m_dialogs(dialogs),
      m_modes(modes),
      m_manager(manager),
      m_engine(engine),
      m_notice(notice),
      m_games(directory) {
    m_session.on_change([this](Changes changes) {
        if (changes.has({Change::record, Change::position, Change::game})) m_changed = true;
        if (!changes.has(Change::game)) return;
        m_games.begin();
        // What is loaded comes from a file.
        m_elsewhere = m_session.record().is_empty() ? std::string() : m_session.pgn();
    });
    dispatcher.listen([this](const to_window::Line& line) {
        if (std::holds_alternative<to_window::GameOver>(line)) note_saved();
    });
}

LeftGame GameKeeper::left_game() const {
    LeftGame left;
    if (m_frame.mode() == Mode::human_computer) {
        const Side to_move = m_session.side_to_move();
        left.engine = m_session.engine_to_move() ? to_move : opposite(to_move);
    }
    left.clocks = m_clocks.read_clocks();
    left.level = m_session.level().text();
    for (const Side side : {Side::white, Side::black}) {
        const std::string tagged = m_session.record().tag(side == Side::white ? "White" : "Black");
        if (side == Side::black) left.players += " - ";
        left.players += tagged.empty() || tagged == "?" ? m_session.players()[side].name : tagged;
    }
    const auto& tree = m_session.record().tree();
    for (auto id = m_session.record().current(); id != 0; id = tree.node(id).pid) {
        if (tree.node(id).type == ElementType::move) {
            left.way.push_back(static_cast<std::uint32_t>(tree.place_of(id)));
        }
    }
    std::ranges::reverse(left.way);
    return left;
}

void GameKeeper::tick() {
    if (!std::exchange(m_changed, false) || m_frame.mode() == Mode::tournament) return;
    const std::string pgn = m_session.pgn();
    if (m_session.record().is_empty() || pgn == m_elsewhere) return m_games.drop();
    const auto fault = m_games.keep(pgn, left_game());
    if (fault && !std::exchange(m_complained, true)) {
        std::cerr << "The game can't be kept: " << *fault << '\n';
    }
}

void GameKeeper::choose() {
    if (m_frame.mode() == Mode::tournament) {
        return m_dialogs.tell_user("A match is being played",
                                   "Leave the tournament to take up an earlier game.");
    }
    const auto games = m_games.list();
    if (games.empty()) {
        return m_dialogs.tell_user("There are no earlier games",
                                   "Games that are left and stand in no file are kept here.");
    }
    const auto chosen = m_dialogs.choose_earlier_game(games);
    if (chosen && *chosen < games.size()) take_up(games[*chosen]);
}

void GameKeeper::take_up(const EarlierGame& chosen) {
    auto loaded = EarlierGames::load(chosen.path);
    if (!loaded) return m_dialogs.tell_user("The game can't be read", chosen.path);
    tick();  // the present one as it is left
    const LeftGame& left = loaded->second;
    m_session.load(std::move(loaded->first));
    m_games.take_up(chosen.path);
    m_elsewhere.clear();
    m_session.step([&left](Game& game) {
        auto node = game.current();
        for (const auto child : left.way) {
            const auto next = game.tree().node(node).child_at(child);
            if (next <= 0) break;
            node = next;
        }
        return game.go_to(node);
    });
    const Level level(left.level);
    m_session.set_level(level);
    m_manager.send(to_referee::SetLevel{level.text()});
    const bool with_engine = left.engine && m_engine.is_there();
    const bool is_in_mode = m_frame.mode() == Mode::human_computer;
    m_frame.select_mode(with_engine ? Mode::human_computer : Mode::human_human);
    if (!with_engine || is_in_mode) m_modes.follow_position();
    if (with_engine) return play_on(left, *left.engine == m_session.side_to_move());
    m_clocks.restore_clocks(left.clocks, std::nullopt);
    if (left.engine) m_notice.say("Load an engine and choose Mode / Human - computer to play on against it.");
}

/// The referee is given the whole game, so that repetitions count, and the engine the time that it had.
void GameKeeper::play_on(const LeftGame& left, bool engine_to_move) {
    const ChessPosition& position = m_session.position();
    m_manager.send(to_referee::SetGame{position.start_fen() + " moves " + position.moves_text()});
    const ClockReading& engine = left.clocks[*left.engine];
    m_manager.send(to_referee::SetClock{engine.centiseconds * 10, engine.moves});
    if (engine_to_move) m_modes.start_thinking();
    m_clocks.restore_clocks(left.clocks, m_session.side_to_move());
}

}  // namespace velmora
