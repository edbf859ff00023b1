#include "window/session/game_session.h"

#include "base/text.h"
#include "game/annotations.h"
#include "game/game_tags.h"
#include "window/session/annotation.h"
#include "window/session/opening_tags.h"
#include "window/session/position_line.h"

namespace velmora {

namespace {

/// What changes when the board comes to another node of the record.
constexpr Changes other_node = {Change::comment, Change::record, Change::turn, Change::position};
/// The same by another record, at whose start the board stands.
constexpr Changes other_game = {Change::game, Change::comment, Change::record, Change::turn,
                                Change::position};
/// The first one by a move against the clock, where the clock that starts shows whose move it is.
constexpr Changes other_node_by_clock = {Change::comment, Change::record, Change::position};

}  // namespace

GameSession::GameSession(std::function<std::string()> comment_box) : m_comment_box(std::move(comment_box)) {
    begin_record(m_record, m_names);
}

void GameSession::tell(Changes changes) const {
    for (const Listener& listener : m_listeners) listener(changes);
}

// ---------------------------------------------------------------------------------------------------------------
// The game as it stands

const MoveSectionElement* GameSession::next_move() const {
    const auto& tree = m_record.tree();
    const auto next = tree.node(m_record.current()).child_at(0);
    return next > 0 && tree.node(next).type == ElementType::move ? &tree.node(next) : nullptr;
}

std::string GameSession::last_move_text() const {
    const auto& node = m_record.tree().node(m_record.current());
    if (node.type != ElementType::move) return {};
    return (node.color == Side::white ? "White: " : "Black: ") + node.san;
}

std::string GameSession::next_move_text() const {
    const MoveSectionElement* const next = next_move();
    if (!next || next->san.empty()) return "The move";
    return std::to_string(next->move_number) + (next->color == Side::white ? ". " : "... ") + next->san;
}

std::string GameSession::epd_text() const {
    const std::string epd = position().epd();
    const auto operations = epd_operations(m_loaded_line);
    const bool still_there = text::join(first_fields(m_loaded_line)) == epd;
    return still_there && !operations.empty() ? epd + " " + std::string(operations) : epd;
}

// ---------------------------------------------------------------------------------------------------------------
// A game begins or is brought from elsewhere

void GameSession::begin_game(const RecordNames& names) {
    m_retracted.clear();
    begin_record(m_record, names);
    follow_record();
    forget_search();
    tell({Change::game, Change::clocks, Change::comment, Change::record, Change::turn, Change::position});
}

void GameSession::new_game_without_names() {
    RecordNames names = m_names;
    names.event = default_event;
    names.site = default_site;
    begin_game(names);
}

/// Moves that were played from another start don't fit this one; the tags stay.
void GameSession::begin_at(const std::string& fen) {
    m_retracted.clear();
    const GameTags tags = m_record.tags();
    m_record.reset();
    for (const std::string& name : tags.order()) m_record.set_tag(name, tags.get(name));
    m_record.set_tag("SetUp", "1");
    m_record.set_tag("FEN", fen);
    follow_record();
}

void GameSession::start_from(const std::string& fen) {
    store_comment();
    begin_at(fen);
    tell(other_game);
}

void GameSession::load_position(const std::string& line, const std::string& fen) {
    m_loaded_line = line;
    forget_search();
    begin_record(m_record, m_names);
    for (const auto& [tag, value] : roster_tags(line)) m_record.set_tag(tag, tag_safe(value));
    begin_at(fen);
    tell(other_game);
}

/// No comment is stored, since the record that it belonged to is gone by then.
void GameSession::load(Game record) {
    m_retracted.clear();
    m_record = std::move(record);
    m_record.to_start();
    follow_record();
    forget_search();
    tag_opening_of_main_line(m_record, m_openings);
    tell(other_game);
}

void GameSession::follow_record() {
    m_without_rights.reset();
    m_played = 0;
    m_selected.reset();
}

// ---------------------------------------------------------------------------------------------------------------
// A game is played

void GameSession::add_move(const Move& move) {
    const auto from = m_record.current();
    m_record.add_move(move);
    if (m_retracted.contains(from)) m_record.lead();
    if (m_without_rights) m_without_rights->do_move(move);
    ++m_played;
    m_selected.reset();
    tag_opening(m_record, m_openings, position().key());
}

void GameSession::play(const Move& move) {
    store_comment();
    add_move(move);
    tell(m_clocks_held ? other_node : other_node_by_clock);
}

void GameSession::play_for_engine(const Move& move) {
    const Side side = side_to_move();
    // "Start thinking" may have crossed the engine's move on its way: then the engine has changed sides.
    if (!m_seats.engine_plays(side)) m_seats = Seats::with_engine(side);
    store_comment();
    add_move(move);
    attach(side);
    tell(other_node_by_clock);
}

void GameSession::note_search(Side side, std::string_view line) { annotate(m_annotations[side], line, side); }

void GameSession::attach(Side side) {
    // A node that was there already keeps its comment when the engine had nothing to say.
    if (!m_annotations[side].empty()) m_record.set_comment(m_annotations[side]);
    m_annotations[side].clear();
}

void GameSession::attach_search(Side side) {
    attach(side);
    tell({Change::comment, Change::record});
}

void GameSession::append_move_time(std::string_view milliseconds) {
    store_comment();
    m_record.append_comment("[%time " + annotation_value(milliseconds) + "]");
    m_record.set_comment(readable_comment(m_record.comment()));
    tell({Change::comment, Change::record});
}

void GameSession::take_back() {
    if (m_played == 0) return;
    store_comment();
    --m_played;
    if (m_without_rights) m_without_rights->undo_move();
    m_record.back();
    m_selected.reset();
    tell(other_node);
}

void GameSession::retract(int plies) {
    store_comment();
    for (; plies > 0 && m_record.current() != 0; --plies) m_record.back();
    m_retracted.insert(m_record.current());
    follow_record();
    tell(other_node);
}

void GameSession::end_game(const GameOutcome& outcome, const std::string& termination) {
    store_comment();
    tag_ended_game(m_record, m_names.players, m_level);
    if (!termination.empty()) m_record.set_tag("Termination", tag_safe(termination));
    const std::string_view result = result_token(outcome.result);
    std::string ending = ending_text(outcome.reason, result);
    m_record.set_result(ending);
    // The words may hold another result; the tag has the referee's.
    m_record.set_tag("Result", result);
    tell({Change::comment, Change::record});
}

// ---------------------------------------------------------------------------------------------------------------
// The person looks and writes

/// Only where it differs, since storing cleans the text: a comment from a file that nobody edits stays as
/// it was.
void GameSession::store_comment() {
    const std::string text = m_comment_box();
    if (text != m_record.comment()) m_record.set_comment(comment_from_user(text));
}

void GameSession::step(const Step& step) {
    store_comment();
    m_selected.reset();
    const auto node = m_record.current();
    const auto arrive = [this] {
        tag_opening(m_record, m_openings, position().key());
        tell(other_node);
    };
    try {
        if (!step(m_record).empty()) follow_record();
    } catch (...) {
        // On the way to the end, the record stays at the last node that could be reached.
        if (m_record.current() != node) {
            follow_record();
            arrive();
        }
        throw;
    }
    arrive();
}

bool GameSession::edit(const Edit& edit) {
    store_comment();
    const auto node = m_record.current();
    const auto& stood = m_record.tree().node(node);
    // A result is at the position of the move ahead of it: from the one to the other is no step.
    const auto shown = stood.type == ElementType::end_game ? stood.pid : node;
    if (!edit(m_record)) return false;
    if (m_record.current() == shown || m_record.current() == node) {
        tell({Change::comment, Change::record});
    } else {
        follow_record();
        tag_opening(m_record, m_openings, position().key());
        tell(other_node);
    }
    return true;
}

void GameSession::select(std::optional<Square> square) {
    m_selected = square;
    tell({Change::selection});
}

void GameSession::apply_comment() {
    store_comment();
    tell({Change::record});
}

std::string GameSession::text_to_save() {
    store_comment();
    return m_record.pgn();
}

void GameSession::clear_rights() {
    if (position().rights() == 0) return;
    if (!m_without_rights && m_played > 0) m_without_rights = static_cast<const ChessPosition&>(m_record);
    if (!m_without_rights) m_without_rights.emplace().set_fen(m_record.fen());
    m_without_rights->set_rights(0);
    tell({Change::position});
}

// ---------------------------------------------------------------------------------------------------------------
// Who plays, where, and how long

void GameSession::seat(const Seats& seats) {
    if (seats == m_seats) return;
    m_seats = seats;
    tell({Change::seats});
}

void GameSession::set_event(std::string_view event) {
    m_names.event = event;
    m_record.set_tag("Event", tag_safe(m_names.event));
}

void GameSession::set_site(std::string_view site) {
    m_names.site = site;
    m_record.set_tag("Site", tag_safe(m_names.site));
}

void GameSession::set_round(std::string_view round) {
    m_names.round = round;
    m_record.set_tag("Round", tag_safe(m_names.round));
}

void GameSession::set_level(const Level& level) {
    m_level = level;
    tell({Change::clocks});
}

}  // namespace velmora
