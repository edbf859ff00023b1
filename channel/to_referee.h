#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "channel/line_form.h"
#include "chess/board/game_outcome.h"

/// The commands of the window to the referee: a struct for each, and in it the form in which it travels and
/// what others than the referee have to know of it.
///
/// A new command is a struct, a place in `Line`, and a function of the referee.
namespace velmora::to_referee {

using line_form::comment;
using line_form::line;
using line_form::named_value;
using line_form::number;
using line_form::one_of;
using line_form::rest;
using line_form::token;
using line_form::trimmed_rest;

/// What a command means to whoever passes it on.
///
/// The window and the console keep account of what goes on (a match, a search) by the lines they pass on.
/// Told here, beside the command, a new command can't be forgotten by them.
struct Effects {
    bool changes_position =
        false;                   ///< what the referee says of the game before it has taken it, has crossed it
    bool seats_engines = false;  ///< sends the referee to look for engines
    bool starts_match = false;
    bool leaves_match = false;   ///< without a word of the referee
    bool starts_search = false;  ///< of the first engine, outside of a match
    bool only_wakes = false;     ///< asks for nothing; the game takes its step, as behind every line
    bool quits = false;          ///< overtakes all that waits
    bool ends_review = false;    ///< a review that runs
};

// -- Modes and the game

struct AnalyzePosition {
    static constexpr Effects effects{.leaves_match = true, .starts_search = true, .ends_review = true};
    static constexpr auto form = line("analyzeposition");
};

/// The first engine takes the side to move.
struct Go {
    static constexpr Effects effects{.leaves_match = true, .starts_search = true, .ends_review = true};
    static constexpr auto form = line("go");
};

struct HumanHuman {
    static constexpr Effects effects{.leaves_match = true, .ends_review = true};
    static constexpr auto form = line("human_human");
};

/// The drill against a book.
struct LearnOpenings {
    int hints = 0;  ///< bit 0: White's moves are shown, bit 1: Black's; 0 ends the drill
    static constexpr Effects effects{.leaves_match = true, .ends_review = true};
    static constexpr auto form = line("learnopenings", number(&LearnOpenings::hints));
};

struct NewGame {
    static constexpr Effects effects{.changes_position = true, .ends_review = true};
    static constexpr auto form = line("new");
};

/// The person takes the side to move.
struct PlayOther {
    static constexpr Effects effects{.leaves_match = true, .ends_review = true};
    static constexpr auto form = line("playother");
};

struct SetBoard {
    std::string fen;
    static constexpr Effects effects{.changes_position = true, .leaves_match = true};
    static constexpr auto form = line("setboard", rest(&SetBoard::fen));
};

/// A move of the person, in coordinates.
struct UserMove {
    std::string move;
    static constexpr Effects effects{.changes_position = true, .starts_search = true};
    static constexpr auto form = line("usermove", token(&UserMove::move));
};

// -- What a person may do beside moving

/// The person loses. In a game against the first engine, like all down to Flag; elsewhere nothing happens.
struct Resign {
    static constexpr auto form = line("resign");
};

/// Offers a draw, or accepts the one that the engine offers.
struct OfferDraw {
    static constexpr auto form = line("offer_draw");
};

/// Ends the game when its position is one by which a draw may be claimed.
struct ClaimDraw {
    static constexpr auto form = line("claim_draw");
};

/// The person's last move is taken back, and the engine's answer to it. Always answered by "taken_back".
struct TakeBack {
    static constexpr auto form = line("take_back");
};

/// The engine is to make its move at once.
struct MoveNow {
    static constexpr auto form = line("move_now");
};

/// Whether a fallen flag loses the game.
struct LoseOnTime {
    bool on = false;
    static constexpr auto form =
        line("lose_on_time", one_of<bool>(&LoseOnTime::on, {{"on", true}, {"off", false}}));
};

/// The person's flag has fallen. The referee keeps the engine's clock alone, and looks at it by itself.
struct Flag {
    static constexpr auto form = line("flag");
};

/// Two people end their game: "result 1-0 time_forfeit {time}".
struct NoteResult : GameOutcome {
    std::string termination;  ///< the value of the tag, with underscores for its blanks
    static constexpr auto form =
        line("result",
             one_of<GameResult>(&NoteResult::result,
                                {{result_token(GameResult::white_wins), GameResult::white_wins},
                                 {result_token(GameResult::black_wins), GameResult::black_wins},
                                 {result_token(GameResult::draw), GameResult::draw}}),
             token(&NoteResult::termination), comment(&NoteResult::reason));
};

/// Sets the position like "setboard", with the moves that led to it: "setgame <FEN> moves e2e4 e7e5".
/// Repetitions are counted over them, and they can be taken back.
struct SetGame {
    std::string game;
    static constexpr Effects effects{.changes_position = true, .leaves_match = true, .ends_review = true};
    static constexpr auto form = line("setgame", trimmed_rest(&SetGame::game));
};

/// What the first engine has left on its clock: "clock 61500 12". While it thinks nothing happens.
struct SetClock {
    std::int32_t ms = 0;
    std::int32_t moves = 0;  ///< that it has made in the game, which count in the sessions of a level
    static constexpr auto form = line("clock", number(&SetClock::ms), number(&SetClock::moves));
};

// -- A review

/// The first engine goes through positions of a line, in the order of the plies:
/// "review 7 fixed_movetime 500 2,1 <FEN> moves e2e4 e7e5". One that runs already ends.
struct Review {
    std::int32_t run = 0;  ///< a number of the sender's choice, which the answers bear
    std::string mode;      ///< what the engine is given for each, in the words of a level:
    std::string amount;    ///< "fixed_depth 12", "fixed_nodes 1000", "fixed_movetime 500"
    std::string plies;     ///< so many moves ahead of each position, "80,79,3"; "-" for none
    std::string position;  ///< the FEN of the start, the word "moves", and the moves in coordinates
    static constexpr Effects effects{.leaves_match = true, .starts_search = true, .ends_review = true};
    static constexpr auto form = line("review", number(&Review::run), token(&Review::mode),
                                      token(&Review::amount), token(&Review::plies), rest(&Review::position));
};

struct ReviewStop {
    static constexpr Effects effects{.ends_review = true};
    static constexpr auto form = line("review_stop");
};

// -- Engines and settings

/// Fills the first seat.
struct Load {
    enum class Source { filename, name, unknown };

    std::int32_t protocol = 0;  ///< 1 to 3; every other number has it found out
    Source source = Source::unknown;
    std::string what;  ///< the program's path, or the name in the list of installed engines
    static constexpr Effects effects{.seats_engines = true, .ends_review = true};
    static constexpr auto form =
        line("load", number(&Load::protocol),
             one_of<Source>(&Load::source,
                            {{"filename", Source::filename}, {"name", Source::name}, {"", Source::unknown}}),
             trimmed_rest(&Load::what));
};

/// The time control, in the text form of a level.
struct SetLevel {
    std::string level;
    static constexpr auto form = line("level", rest(&SetLevel::level));
};

struct Ponder {
    bool on = false;
    static constexpr auto form = line("ponder", one_of<bool>(&Ponder::on, {{"on", true}, {"off", false}}));
};

/// Gives an option of the first engine another value. Both may hold blanks; one without a name is none.
struct SetOption {
    std::string name;
    std::string value;
    static constexpr auto form =
        line("setoption", named_value("name", &SetOption::name, "value", &SetOption::value));
};

/// The book of the drill.
struct PolyglotBook {
    std::string path;
    static constexpr auto form = line("polyglotbook", trimmed_rest(&PolyglotBook::path));
};

/// The openings of the tournament.
struct Book {
    std::string path;
    static constexpr auto form = line("book", trimmed_rest(&Book::path));
};

/// The logs are written.
struct Debug {
    bool on = false;
    static constexpr auto form = line("debug", one_of<bool>(&Debug::on, {{"true", true}, {"false", false}}));
};

// -- Tournaments, and the program

struct LoadTournament {
    std::string name;
    static constexpr auto form = line("load_tournament", rest(&LoadTournament::name));
};

struct StartTournament {
    static constexpr Effects effects{.seats_engines = true, .starts_match = true, .ends_review = true};
    static constexpr auto form = line("start_tournament");
};

/// Has the referee look at the engines: an engine that has died or fallen silent sends no line.
///
/// The referee sleeps until a line comes, and has no clock that wakes it: its only source of events is the
/// queue.
struct WakeUp {
    static constexpr Effects effects{.only_wakes = true};
    static constexpr std::string_view word = "wake_up";
    static constexpr auto form = line(word);
};

struct Quit {
    static constexpr Effects effects{.quits = true, .ends_review = true};
    static constexpr auto form = line("quit");
};

using Line =
    std::variant<AnalyzePosition, Go, HumanHuman, LearnOpenings, NewGame, PlayOther, SetBoard, UserMove,
                 Resign, OfferDraw, ClaimDraw, TakeBack, MoveNow, LoseOnTime, Flag, NoteResult, SetGame,
                 SetClock, Review, ReviewStop, Load, SetLevel, Ponder, SetOption, PolyglotBook, Book, Debug,
                 LoadTournament, StartTournament, WakeUp, Quit>;

/// The text of a command, without a sender.
std::string encode(const Line& line);

/// Reads a command; nothing when its first word is none of the language.
std::optional<Line> decode(std::string_view command);

/// The effects of a command, without reading more than its first word.
Effects effects_of(std::string_view command);

}  // namespace velmora::to_referee
