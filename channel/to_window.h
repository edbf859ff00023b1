#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "channel/line_form.h"
#include "channel/sender.h"
#include "chess/board/arrow_color.h"
#include "chess/board/game_outcome.h"
#include "chess/board/side.h"
#include "chess/board/square.h"

/// The lines that the referee says to the window: a struct for each, and in it the form in which it travels.
///
/// A new line is a struct and a place in `Line`. The window has a function for each that changes something,
/// and listeners for those that are only shown.
namespace velmora::to_window {

using line_form::comment;
using line_form::line;
using line_form::literal;
using line_form::number;
using line_form::one_of;
using line_form::rest;
using line_form::square;
using line_form::token;
using line_form::trimmed_rest;
using line_form::verbatim_rest;

/// What a line means to whoever follows the first words alone.
struct Effects {
    bool ends_search = false;  ///< the first engine searches no more, outside of a match
    bool ends_match = false;
    bool ends_all = false;  ///< no line follows
};

// -- A game as it is played

/// A move of an engine, in coordinates: "e7e8q".
struct PlayMove {
    std::string move;
    static constexpr Effects effects{.ends_search = true};
    static constexpr auto form = line("move", token(&PlayMove::move));
};

/// What the last move has taken, in ms.
struct MoveTime {
    std::string time;
    static constexpr auto form = line("emt", token(&MoveTime::time));
};

/// The person's last move doesn't count.
struct TakeBack {
    static constexpr auto form = line("takeback");
};

/// The position from which a game begins.
struct SetBoard {
    std::string fen;
    static constexpr auto form = line("setboard", rest(&SetBoard::fen));
};

/// An engine has moved against a person: for whoever wants to make a sound.
struct Shout {
    static constexpr auto form = line("shout");
};

struct NewGame {
    static constexpr auto form = line("new");
};

/// A game is over; the result is the word, "1-0 {White mates}".
struct GameOver : GameOutcome {
    static constexpr Effects effects{.ends_search = true};
    static constexpr auto form = line(
        one_of<GameResult>(&GameOver::result, {{result_token(GameResult::white_wins), GameResult::white_wins},
                                               {result_token(GameResult::black_wins), GameResult::black_wins},
                                               {result_token(GameResult::draw), GameResult::draw}}),
        comment(&GameOver::reason));
};

/// Why the game that ends with the next line has ended, as the tag "Termination" says it (PGN standard,
/// 9.8.1): "normal", "time forfeit".
struct Termination {
    std::string text;
    static constexpr auto form = line("termination", trimmed_rest(&Termination::text));
};

/// A side offers a draw, which the other may accept until it has moved.
struct DrawOffered {
    Side side = Side::white;
    static constexpr auto form = line(
        "draw_offered", one_of<Side>(&DrawOffered::side, {{"white", Side::white}, {"black", Side::black}}));
};

/// A side doesn't accept the draw that it was offered.
struct DrawDeclined {
    Side side = Side::white;
    static constexpr auto form = line(
        "draw_declined", one_of<Side>(&DrawDeclined::side, {{"white", Side::white}, {"black", Side::black}}));
};

/// The position of the game is that of so many plies ago; 0 where nothing could be taken back.
struct TakenBack {
    int plies = 0;
    static constexpr Effects effects{.ends_search = true};
    static constexpr auto form = line("taken_back", number(&TakenBack::plies));
};

/// What an engine says of its search, its first word taken off and the blank behind it left.
struct SearchOutput {
    Side side = Side::white;
    std::string text;
    static constexpr auto form =
        line(one_of<Side>(&SearchOutput::side, {{"white_info", Side::white}, {"black_info", Side::black}}),
             verbatim_rest(&SearchOutput::text));
};

// -- A review

/// What the engine has found out about a position of the run, in the form of its search output:
/// "reviewed 7 2 g1f3 depth 18 score cp 35 ... pv g1f3 b8c6".
struct Reviewed {
    int run = 0;
    int ply = 0;         ///< moves ahead of the position
    std::string choice;  ///< the move that the engine would make, in coordinates
    std::string text;
    static constexpr auto form = line("reviewed", number(&Reviewed::run), number(&Reviewed::ply),
                                      token(&Reviewed::choice), trimmed_rest(&Reviewed::text));
};

/// Nothing is to be found out about a position: the engine has said nothing, or dies there.
struct ReviewLeftOut {
    int run = 0;
    int ply = 0;
    static constexpr auto form =
        line("review_left_out", number(&ReviewLeftOut::run), number(&ReviewLeftOut::ply));
};

struct ReviewFinished {
    enum class Reason { done, stopped, failed };

    int run = 0;
    Reason reason = Reason::done;  ///< failed: no engine, or one that doesn't answer; or nothing to read
    static constexpr Effects effects{.ends_search = true};
    static constexpr auto form = line(
        "review_finished", number(&ReviewFinished::run),
        one_of<Reason>(&ReviewFinished::reason,
                       {{"done", Reason::done}, {"stopped", Reason::stopped}, {"failed", Reason::failed}}));
};

// -- What is shown around the board

struct SetEvent {
    std::string event;
    static constexpr auto form = line("event", rest(&SetEvent::event));
};

struct SetSite {
    std::string site;
    static constexpr auto form = line("site", rest(&SetSite::site));
};

struct SetRound {
    std::string round;
    static constexpr auto form = line("round", token(&SetRound::round));
};

/// How far a match has come as one of its games begins: "match_progress 3 4 1.5 - 0.5".
struct MatchProgress {
    int game = 0;       ///< of the schedule, from 1
    int games = 0;      ///< in the schedule
    std::string score;  ///< of two participants, that of the first one first; "-" among more
    static constexpr auto form = line("match_progress", number(&MatchProgress::game),
                                      number(&MatchProgress::games), trimmed_rest(&MatchProgress::score));
};

/// The time control of the games to come, in the text form of a level.
struct SetLevel {
    std::string level;
    static constexpr auto form = line("level", rest(&SetLevel::level));
};

/// What is left on a clock.
struct SetClock {
    Side side = Side::white;
    int ms = 0;
    static constexpr auto form =
        line(one_of<Side>(&SetClock::side, {{"wtime", Side::white}, {"btime", Side::black}}),
             number(&SetClock::ms));
};

/// Who sits in a seat; an empty name is that of nobody.
struct EngineName {
    Seat seat = Seat::first;
    std::string name;
    static constexpr auto form =
        line(one_of<Seat>(&EngineName::seat, {{"engine1name", Seat::first}, {"engine2name", Seat::second}}),
             trimmed_rest(&EngineName::name));
};

/// Who plays a side.
struct PlayerName {
    Side side = Side::white;
    std::string name;
    static constexpr auto form =
        line(one_of<Side>(&PlayerName::side, {{"whitename", Side::white}, {"blackname", Side::black}}),
             trimmed_rest(&PlayerName::name));
};

struct PlayerElo {
    Side side = Side::white;
    std::string elo;
    static constexpr auto form =
        line(one_of<Side>(&PlayerElo::side, {{"WhiteElo", Side::white}, {"BlackElo", Side::black}}),
             token(&PlayerElo::elo));
};

struct SetArrow {
    Square from, to;
    ArrowColor color = ArrowColor::blue;
    static constexpr auto form =
        line("set_arrow", square(&SetArrow::from), square(&SetArrow::to),
             one_of<ArrowColor>(&SetArrow::color,
                                {{"r", ArrowColor::red}, {"g", ArrowColor::green}, {"b", ArrowColor::blue}}));
};

struct ClearArrows {
    static constexpr auto form = line("clear_arrows");
};

// -- The program

/// A message. The headline is read up to its first blank; the details have a blank ahead of them. Underscores
/// stand for blanks in both.
struct TellUser {
    std::string headline;
    std::string details = {};
    static constexpr auto form =
        line("telluser", token(&TellUser::headline), verbatim_rest(&TellUser::details));
};

/// The mode that was asked for isn't to be had.
struct ResetMode {
    static constexpr auto form = line("reset", literal("mode"));
};

struct TournamentFinished {
    static constexpr Effects effects{.ends_match = true};
    static constexpr auto form = line("tournament_finished");
};

/// The answer to the command of that name.
struct Quit {
    static constexpr Effects effects{.ends_all = true};
    static constexpr auto form = line("quit");
};

using Line =
    std::variant<PlayMove, MoveTime, TakeBack, SetBoard, Shout, NewGame, GameOver, Termination, DrawOffered,
                 DrawDeclined, TakenBack, SearchOutput, Reviewed, ReviewLeftOut, ReviewFinished, SetEvent,
                 SetSite, SetRound, MatchProgress, SetLevel, SetClock, EngineName, PlayerName, PlayerElo,
                 SetArrow, ClearArrows, TellUser, ResetMode, TournamentFinished, Quit>;

/// The text that travels.
std::string encode(const Line& line);

/// Reads a text; nothing when its first word is none of the language.
std::optional<Line> decode(std::string_view text);

/// The effects of a text, without reading more than its first word.
///
/// Enough for the console, which prints lines and doesn't look into them.
Effects effects_of(std::string_view text);

}  // namespace velmora::to_window
