#include "manager/interface_commands.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace velmora {

namespace {

/// The number of the "load" command; what names no protocol has it found out.
Protocol protocol_of(std::int32_t number) {
    return number >= 1 && number <= 3 ? static_cast<Protocol>(number) : Protocol::autodetect;
}

}  // namespace

struct InterfaceCommands::Command {
    std::string_view word;
    void (InterfaceCommands::*run)(text::WordReader& arguments);
};

// "wake_up" and "reset_tournament" are words of the language, too: like unknown ones they do nothing here,
// and the game takes its step.
constexpr InterfaceCommands::Command InterfaceCommands::commands[] = {
    {"analyzeposition", &InterfaceCommands::analyzeposition},
    {"book", &InterfaceCommands::book},
    {"debug", &InterfaceCommands::debug},
    {"go", &InterfaceCommands::go},
    {"human_human", &InterfaceCommands::human_human},
    {"learnopenings", &InterfaceCommands::learnopenings},
    {"level", &InterfaceCommands::level},
    {"load", &InterfaceCommands::load},
    {"load_tournament", &InterfaceCommands::load_tournament},
    {"new", &InterfaceCommands::new_game},
    {"playother", &InterfaceCommands::playother},
    {"polyglotbook", &InterfaceCommands::polyglotbook},
    {"ponder", &InterfaceCommands::ponder},
    {"quit", &InterfaceCommands::quit},
    {"setboard", &InterfaceCommands::setboard},
    {"setoption", &InterfaceCommands::setoption},
    {"start_tournament", &InterfaceCommands::start_tournament},
    {"usermove", &InterfaceCommands::usermove},
};

InterfaceCommands::InterfaceCommands(RefereeState& state, EngineSeats& seats, AnalyzeMode& analyze,
                                     PlayMode& play, LearnMode& learn, MatchMode& match)
    : m_state(state), m_seats(seats), m_analyze(analyze), m_play(play), m_learn(learn), m_match(match) {}

void InterfaceCommands::process(std::string_view line) {
    text::WordReader reader(line);
    if (reader.integer<int>() != 0) {
        throw std::logic_error("Manager::process_command_from_interface: command not from interface");
    }
    if (m_state.log.is_on()) m_state.log.write(" interface -> " + std::string(line));
    const auto word = reader.word();
    const auto command = std::ranges::find(commands, word, &Command::word);
    if (command == std::end(commands)) return;
    m_state.game_over = false;
    (this->*command->run)(reader);
}

void InterfaceCommands::analyzeposition(text::WordReader&) { m_analyze.analyze_position(); }

void InterfaceCommands::book(text::WordReader& arguments) {
    m_match.set_book(std::string(text::trim_blanks(arguments.rest())));
}

void InterfaceCommands::debug(text::WordReader& arguments) {
    m_state.log.set_debug(arguments.word() == "true");
    m_seats.pass_debug_flag();
}

void InterfaceCommands::go(text::WordReader&) { m_play.go(); }

void InterfaceCommands::human_human(text::WordReader&) {
    m_state.enter(ManagerMode::human_human);
    m_seats.stop_all();
}

void InterfaceCommands::learnopenings(text::WordReader& arguments) {
    m_learn.learn_openings(arguments.integer<int>().value_or(0));
}

void InterfaceCommands::level(text::WordReader& arguments) {
    m_state.level = Level(arguments.rest());
    m_seats.pass_level();
}

void InterfaceCommands::load(text::WordReader& arguments) {
    const auto protocol = protocol_of(arguments.integer<std::int32_t>().value_or(0));
    const auto source = arguments.word();
    const std::string what(text::trim_blanks(arguments.rest()));
    // A match would write the rest of its game into its file, with another engine in the seat.
    m_match.cancel();
    if (source == "filename") m_seats.load_engine(Seat::first, what, protocol);
    if (source == "name") m_seats.load_installed_engine(Seat::first, what);
    m_seats.new_game_for_all();
    m_state.position.new_game();
    m_state.pending = Move();  // of a game that is no more
}

void InterfaceCommands::load_tournament(text::WordReader& arguments) {
    m_match.load_tournament(std::string(text::trim_leading_blanks(arguments.rest())));
}

void InterfaceCommands::new_game(text::WordReader&) {
    if (m_state.mode == ManagerMode::match) return;
    auto* const engine = m_seats.engine(Seat::first);
    if (engine != nullptr && !engine->get_enginevariables().features.reuse) m_seats.reload(Seat::first);
    m_seats.new_game_for_all();
    m_state.position.new_game();
    if (m_state.mode == ManagerMode::play) m_play.new_game();
}

void InterfaceCommands::playother(text::WordReader&) { m_play.play_other(); }

void InterfaceCommands::polyglotbook(text::WordReader& arguments) {
    // One word in the language; but a person's books may lie in a directory with blanks in its name.
    const std::string rest(text::trim_blanks(arguments.rest()));
    std::error_code unreadable;
    m_learn.set_book(std::filesystem::exists(rest, unreadable) ? rest : std::string(arguments.word()));
}

void InterfaceCommands::ponder(text::WordReader& arguments) { m_seats.set_ponder(arguments.word() == "on"); }

void InterfaceCommands::quit(text::WordReader&) {
    m_seats.unload_all();
    m_state.quit = true;
    m_state.send("quit");
}

void InterfaceCommands::setboard(text::WordReader& arguments) {
    // Late answers would count as illegal moves of the match's game.
    m_match.leave();
    m_seats.stop_all();
    if (m_state.mode == ManagerMode::play && is_engine_turn(m_state.turn)) m_state.turn = MoveTurn::user;
    m_state.position.set_fen(std::string(arguments.rest()));
    m_learn.post_hints();
}

void InterfaceCommands::setoption(text::WordReader& arguments) {
    if (arguments.word() != "name") return;
    std::vector<std::string_view> name;
    auto word = arguments.word();
    for (; !word.empty() && word != "value"; word = arguments.word()) name.push_back(word);
    if (name.empty()) return;
    m_seats.set_option(text::join(name), text::join(text::words(arguments.rest())));
}

void InterfaceCommands::start_tournament(text::WordReader&) { m_match.start_tournament(); }

void InterfaceCommands::usermove(text::WordReader& arguments) {
    if (m_state.mode == ManagerMode::match) return;
    m_state.pending = parse_move(m_state.position, arguments.word());
    if (m_state.mode == ManagerMode::analyze) return;
    m_state.turn = MoveTurn::user;
    if (m_state.mode == ManagerMode::play) m_play.fix_colours();
}

}  // namespace velmora
