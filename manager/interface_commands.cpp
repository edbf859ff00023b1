#include "manager/interface_commands.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>
#include <type_traits>
#include <variant>

#include "base/text.h"
#include "manager/game_line.h"

namespace velmora {

namespace {

/// The number of the "load" command; what names no protocol has it found out.
Protocol protocol_of(std::int32_t number) {
    return number >= 1 && number <= 3 ? static_cast<Protocol>(number) : Protocol::autodetect;
}

}  // namespace

InterfaceCommands::InterfaceCommands(RefereeState& state, EngineSeats& seats, AnalyzeMode& analyze,
                                     PlayMode& play, LearnMode& learn, MatchMode& match, ReviewMode& review,
                                     TableTalk& talk)
    : m_state(state),
      m_seats(seats),
      m_analyze(analyze),
      m_play(play),
      m_learn(learn),
      m_match(match),
      m_review(review),
      m_talk(talk) {}

GameEnd InterfaceCommands::process(std::string_view line) {
    text::WordReader reader(line);
    if (reader.integer<int>() != 0) {
        throw std::logic_error("Manager::process_command_from_interface: command not from interface");
    }
    if (m_state.log.is_on()) m_state.log.write(" interface -> " + std::string(line));
    const auto command = to_referee::decode(reader.rest());
    if (!command) return {};
    if (to_referee::effects_of(reader.rest()).ends_review) m_review.stop();
    // The once-a-second word of a waiting window is nobody's wish for another game.
    if (!to_referee::effects_of(reader.rest()).only_wakes) m_state.game_over = false;
    const auto carry_out = [this](const auto& of) -> GameEnd {
        if constexpr (std::is_void_v<decltype(run(of))>) {
            run(of);
            return {};
        } else {
            return run(of);
        }
    };
    return std::visit(carry_out, *command);
}

void InterfaceCommands::run(const to_referee::AnalyzePosition& /*command*/) { m_analyze.analyze_position(); }

void InterfaceCommands::run(const to_referee::Book& command) { m_match.set_book(command.path); }

void InterfaceCommands::run(const to_referee::Debug& command) {
    m_state.log.set_debug(command.on);
    m_seats.pass_debug_flag();
}

void InterfaceCommands::run(const to_referee::Go& /*command*/) { m_play.go(); }

void InterfaceCommands::run(const to_referee::HumanHuman& /*command*/) {
    m_state.enter(ManagerMode::human_human);
    m_seats.stop_all();
}

void InterfaceCommands::run(const to_referee::LearnOpenings& command) {
    m_learn.learn_openings(command.hints);
}

void InterfaceCommands::run(const to_referee::SetLevel& command) {
    m_state.level = Level(command.level);
    m_seats.pass_level();
}

void InterfaceCommands::run(const to_referee::Load& command) {
    // A match would write the rest of its game into its file, with another engine in the seat.
    m_match.cancel();
    using Source = to_referee::Load::Source;
    if (command.source == Source::filename) {
        m_seats.load_engine(Seat::first, command.what, protocol_of(command.protocol));
    }
    if (command.source == Source::name) m_seats.load_installed_engine(Seat::first, command.what);
    m_seats.new_game_for_all();
    m_state.position.new_game();
    m_talk.begin_game();
    m_state.pending = Move();  // of a game that is no more
}

void InterfaceCommands::run(const to_referee::LoadTournament& command) {
    m_match.load_tournament(command.name);
}

void InterfaceCommands::run(const to_referee::NewGame& /*command*/) {
    if (m_state.mode == ManagerMode::match) return;
    auto* const engine = m_seats.engine(Seat::first);
    if (engine != nullptr && !engine->get_enginevariables().features.reuse) m_seats.reload(Seat::first);
    m_seats.new_game_for_all();
    m_state.position.new_game();
    m_talk.begin_game();
    if (m_state.mode == ManagerMode::play) m_play.new_game();
}

void InterfaceCommands::run(const to_referee::PlayOther& /*command*/) { m_play.play_other(); }

void InterfaceCommands::run(const to_referee::PolyglotBook& command) {
    // One word in the language; but a person's books may lie in a directory with blanks in its name.
    std::error_code unreadable;
    const bool is_file = std::filesystem::exists(command.path, unreadable);
    m_learn.set_book(is_file ? command.path : std::string(text::first_word(command.path)));
}

void InterfaceCommands::run(const to_referee::Ponder& command) { m_seats.set_ponder(command.on); }

void InterfaceCommands::run(const to_referee::Quit& /*command*/) {
    m_seats.unload_all();
    m_state.quit = true;
    m_state.send(to_window::Quit());
}

void InterfaceCommands::run(const to_referee::Review& command) {
    m_match.leave();
    m_review.start(command);
}

/// The person looks at another position. That is the game's affair, and none of a review.
void InterfaceCommands::run(const to_referee::SetBoard& command) {
    if (m_review.is_running()) {
        m_state.position.set_fen(command.fen);
        return;
    }
    make_way_for_position();
    m_state.position.set_fen(command.fen);
    m_learn.post_hints();
}

void InterfaceCommands::make_way_for_position() {
    // Late answers would count as illegal moves of the match's game.
    m_match.leave();
    m_seats.stop_all();
    m_talk.begin_game();
    if (m_state.mode == ManagerMode::play && is_engine_turn(m_state.turn)) m_state.turn = MoveTurn::user;
}

void InterfaceCommands::run(const to_referee::SetGame& command) {
    const ChessPosition position = read_game_line(command.game);
    make_way_for_position();
    m_state.position = position;
    m_learn.post_hints();
}

/// An option is one of the first seat's: in a match settings come from the list of installed engines.
void InterfaceCommands::run(const to_referee::SetOption& command) {
    if (!command.name.empty()) m_seats.set_option(command.name, command.value);
}

void InterfaceCommands::run(const to_referee::StartTournament& /*command*/) { m_match.start_tournament(); }

void InterfaceCommands::run(const to_referee::UserMove& command) {
    if (m_state.mode == ManagerMode::match) return;
    m_state.pending = parse_move(m_state.position, command.move);
    if (m_state.mode == ManagerMode::analyze) return;
    m_state.turn = MoveTurn::user;
    if (m_state.mode != ManagerMode::play) return;
    m_talk.person_moved();
    m_play.fix_colours();
}

}  // namespace velmora
