#include "window/table/table_room.h"

#include <string>
#include <utility>
#include <variant>

#include "chess/moves/legal_moves.h"
#include "game/game_result.h"

namespace velmora {

namespace {

constexpr std::array<MenuEntry, 6> entries = {MenuEntry::resign,     MenuEntry::offer_draw,
                                              MenuEntry::take_back,  MenuEntry::move_now,
                                              MenuEntry::claim_draw, MenuEntry::note_result};

std::string side_name(Side side) { return side == Side::white ? "White" : "Black"; }

bool has_clock(const Level& level) {
    return level.level_t() == LevelType::sudden_death || level.level_t() == LevelType::sessions;
}

}  // namespace

TableRoom::TableRoom(GameSession& session, ClockView& clocks, WindowFrame& frame, Dialogs& dialogs,
                     ModeController& modes, ManagerLink& manager, const SeatedEngine& engine,
                     MessageDispatcher& dispatcher, UserMoves& moves)
    : m_session(session),
      m_clocks(clocks),
      m_frame(frame),
      m_dialogs(dialogs),
      m_modes(modes),
      m_manager(manager),
      m_engine(engine),
      m_times(session, clocks) {
    m_session.on_change([this](Changes changes) { follow(changes); });
    dispatcher.listen([this](const to_window::Line& line) { take(line); });
    // The position that the person sees is about to change.
    moves.divert([this](const Move&) { return m_awaits_take_back; });
}

// ---------------------------------------------------------------------------------------------------------------
// What means something when

TableRoom::Players TableRoom::players() const {
    if (m_frame.mode() == Mode::human_human) return Players::two_people;
    return m_frame.mode() == Mode::human_computer && m_engine.is_there() ? Players::with_engine
                                                                         : Players::none;
}

/// Whether the record has a result behind the position.
bool TableRoom::is_over() const {
    const auto& tree = m_session.record().tree();
    const auto& node = tree.node(m_session.record().current());
    if (node.type == ElementType::end_game) return true;
    const auto next = node.child_at(0);
    return next > 0 && tree.node(next).type == ElementType::end_game;
}

/// Two people who look at earlier moves of a game don't end it there.
bool TableRoom::can_end() const {
    if (players() == Players::none || m_result_sent || is_over() || !m_session.can_go_back()) return false;
    return players() == Players::with_engine || !m_session.can_go_forward();
}

bool TableRoom::person_has_moved() const {
    const auto& tree = m_session.record().tree();
    const auto& node = tree.node(m_session.record().current());
    return m_session.engine_to_move() || (node.id != 0 && node.pid != 0);
}

bool TableRoom::can_take_back() const {
    if (players() == Players::none || m_awaits_take_back || is_over() || !m_session.can_go_back())
        return false;
    return players() == Players::two_people || person_has_moved();
}

bool TableRoom::can(MenuEntry entry) const {
    const bool with_engine = players() == Players::with_engine;
    switch (entry) {
        case MenuEntry::take_back:
            return can_take_back();
        case MenuEntry::move_now:
            return with_engine && m_session.engine_to_move() && !is_over();
        case MenuEntry::claim_draw:
            return can_end() && draw_to_claim(m_session.position()).has_value();
        case MenuEntry::note_result:
            return can_end() && !with_engine;
        default:
            return can_end();
    }
}

// ---------------------------------------------------------------------------------------------------------------
// What the person does

void TableRoom::resign() {
    if (!can(MenuEntry::resign)) return;
    if (players() == Players::with_engine) return m_manager.send(to_referee::Resign());
    const Side side = m_session.side_to_move();
    end(loss_of(side, side == Side::white ? "white resigns" : "black resigns"));
}

void TableRoom::offer_draw() {
    if (!can(MenuEntry::offer_draw)) return;
    if (players() == Players::with_engine) return m_manager.send(to_referee::OfferDraw());
    offer_between_people();
}

/// An offer stands until the other side has moved; who chooses the entry on the other side's turn accepts it.
void TableRoom::offer_between_people() {
    const auto agree = [this] { end({GameResult::draw, "Draw by agreement"}); };
    if (m_offering && *m_offering != m_session.side_to_move()) return agree();
    m_offering = m_session.side_to_move();
    m_notice.say(side_name(*m_offering) + " offers a draw.", agree);
}

void TableRoom::claim_draw() {
    if (!can(MenuEntry::claim_draw)) return;
    if (players() == Players::with_engine) return m_manager.send(to_referee::ClaimDraw());
    end(*draw_to_claim(m_session.position()));
}

void TableRoom::move_now() {
    if (can(MenuEntry::move_now)) m_manager.send(to_referee::MoveNow());
}

void TableRoom::note_result() {
    if (!can(MenuEntry::note_result)) return;
    const auto noted = m_dialogs.ask_result(result(m_session.position()));
    // The game may have gone while the question stood.
    if (noted && can(MenuEntry::note_result)) end(*noted);
}

/// Two people end their game.
void TableRoom::end(const GameOutcome& outcome) {
    if (!can_end()) return;
    m_offering.reset();
    m_notice.clear();
    m_result_sent = true;
    to_referee::NoteResult line;
    static_cast<GameOutcome&>(line) = outcome;
    line.termination = "normal";
    m_manager.send(line);
}

/// The referee may know the position and not how it came about: it is told where it has to go back.
void TableRoom::take_back() {
    if (!can_take_back()) return;
    if (players() == Players::two_people) {
        m_session.retract(1);
        m_modes.follow_position();
        return;
    }
    if (!m_session.engine_to_move()) m_manager.send(to_referee::SetGame{game_line()});
    m_awaits_take_back = true;
    m_manager.send(to_referee::TakeBack());
}

std::string TableRoom::game_line() const {
    const ChessPosition& position = m_session.position();
    return position.start_fen() + " moves " + position.moves_text();
}

void TableRoom::set_lose_on_time(bool on) {
    m_lose_on_time = on;
    m_manager.send(to_referee::LoseOnTime{on});
}

// ---------------------------------------------------------------------------------------------------------------
// What happens

void TableRoom::take(const to_window::Line& line) {
    if (const auto* const clock = std::get_if<to_window::SetClock>(&line)) {
        m_times.correct(clock->side, clock->ms / 10);
    } else if (std::holds_alternative<to_window::GameOver>(line)) {
        m_result_sent = m_awaits_take_back = false;
        m_notice.clear();
    } else if (const auto* const taken = std::get_if<to_window::TakenBack>(&line)) {
        take_back_plies(taken->plies);
    } else if (const auto* const offered = std::get_if<to_window::DrawOffered>(&line)) {
        if (m_session.seats().engine_plays(offered->side)) {
            m_notice.say(m_session.players()[offered->side].name + " offers a draw.",
                         [this] { offer_draw(); });
        } else {
            m_notice.say("You have offered a draw.");
        }
    } else if (std::holds_alternative<to_window::DrawDeclined>(line)) {
        m_notice.say("The draw was declined.");
    }
}

void TableRoom::take_back_plies(int plies) {
    if (!std::exchange(m_awaits_take_back, false) || players() != Players::with_engine) return;
    if (plies == 0) return m_notice.say("There is no move to take back.");
    m_session.retract(plies);
    const Side person = m_session.side_to_move();
    if (const auto* const times = m_times.here()) {
        const ClockReading engine = (*times)[opposite(person)];
        m_clocks.restore_clocks(*times, person);
        m_manager.send(to_referee::SetClock{engine.centiseconds * 10, engine.moves});
    }
    m_notice.say(plies == 1 ? "Your move is taken back." : "Your move and the answer to it are taken back.");
}

void TableRoom::follow(Changes changes) {
    if (changes.has(Change::game)) m_result_sent = m_awaits_take_back = false;
    if (!changes.has({Change::game, Change::position})) return;
    m_flag_told = false;
    const bool stands = !changes.has(Change::game) && m_offering != m_session.side_to_move();
    if (m_offering && stands) return;
    m_offering.reset();
    m_notice.clear();
    announce_end();
}

/// Between two people the mode keeps silent otherwise.
void TableRoom::announce_end() {
    if (players() != Players::two_people || !m_session.can_go_back() || is_over()) return;
    if (has_legal_move(m_session.position())) return;
    if (const auto end = velmora::result(m_session.position())) {
        m_notice.say(end->reason + ". Game / Result... puts the game into the archive.");
    }
}

void TableRoom::tick() {
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const bool possible = can(entries[place]);
        if (m_shown[place] == possible) continue;
        m_shown[place] = possible;
        m_frame.set_sensitive(entries[place], possible);
    }
    if (!m_lose_on_time || m_flag_told || players() != Players::with_engine) return;
    if (m_session.engine_to_move() || !m_session.can_go_back() || is_over() || !has_clock(m_session.level()))
        return;
    if (m_clocks.read_clocks()[m_session.side_to_move()].centiseconds > 0) return;
    m_flag_told = true;
    m_manager.send(to_referee::Flag());
}

}  // namespace velmora
