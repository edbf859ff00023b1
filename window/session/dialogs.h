#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "chess/board/game_outcome.h"
#include "chess/board/piece.h"
#include "chess/board/side.h"
#include "engine/store/engine_variables.h"
#include "engine/store/option.h"
#include "engine/store/strength.h"
#include "engine/time/level.h"
#include "game/game_tags.h"
#include "review/review_settings.h"
#include "tournament/tournament.h"
#include "tournament/tournament_choice.h"
#include "tournament/tournament_data.h"

namespace velmora {

/// What a file is chosen for; decides open or save, title and filters.
///
/// The numbers are the index into the table of titles and filters.
enum class FileKind : std::size_t {
    load_position = 0,
    save_position = 1,
    load_game = 2,
    tournament_openings = 3,
    save_game = 4,
    engine = 5,
    polyglot_book = 6,
};

/// A line of a file of positions.
struct ChosenPosition {
    std::size_t number = 0;  ///< among the lines that are not empty, from 1
    std::string line;        ///< as it stands in the file
};

/// How the dialog about a tournament was left.
struct TournamentEdit {
    enum class Action { none, cancel, ok };
    Action action = Action::none;
    TournamentData entered;  ///< with `ok`: settings and names of participants, without games
};

/// A game that was left and is kept, as a list shows it.
struct EarlierGame {
    std::string path;
    std::string date;       ///< as its tag has it
    std::string players;    ///< "White - Black"
    std::size_t moves = 0;  ///< plies of the main line
};

/// All that the window's logic asks a person, value in and value out.
///
/// Each call waits for the answer, in the real window with a modal dialog; so what asks runs without a
/// display as well, against an implementation that has its answers ready. Nothing, or an empty text, means
/// that the person has left the question without an answer.
class Dialogs {
public:
    virtual ~Dialogs() = default;

    /// Shows a message and waits until it is answered. Both texts are shown as they stand.
    virtual void tell_user(const std::string& headline, const std::string& details) = 0;
    virtual void about() = 0;

    /// What to put on a square in the set-up; no_piece for nothing.
    virtual Piece choose_piece() = 0;
    /// What a pawn of `side` becomes; none when the question was closed.
    virtual PieceKind choose_promotion(Side side) = 0;
    /// Which hints to show: bit 0 White's moves, bit 1 Black's; 0 for none or a cancelled dialog.
    virtual int choose_hints() = 0;

    /// The chosen path, empty for none.
    /// A position replaces its file, so an existing one is asked for once more; games are appended, and
    /// nobody is asked.
    virtual std::string choose_file(FileKind kind) = 0;
    /// Lets the person choose a game of a PGN file: where it begins, in bytes from the start of the file.
    virtual std::optional<std::uint64_t> choose_game(const std::string& path) = 0;
    virtual std::optional<ChosenPosition> choose_position(const std::string& path) = 0;

    virtual std::optional<Protocol> choose_protocol() = 0;
    /// Lets the person choose an installed engine or uninstall one. Throws std::runtime_error when the list
    /// is there and can't be read.
    virtual std::optional<EngineVariables> choose_installed() = 0;
    /// Looks for engines on the machine; those that the person wants to have installed.
    /// @param installed  paths of the programs that are in the list
    virtual std::vector<EngineVariables> find_engines(const std::vector<std::string>& installed) = 0;
    /// Asks for name, Elo and handicap and puts the engine into the list of installed ones. Throws as
    /// choose_installed() does.
    virtual void install(const EngineVariables& engine) = 0;
    /// The options with what the person has done to them. Throws std::invalid_argument for a spin option
    /// without numbers, see option_lists::for_dialog().
    virtual std::vector<Option> edit_options(std::vector<Option> options) = 0;
    /// How strong an engine is to play; within, nothing for full strength.
    virtual std::optional<std::optional<std::int64_t>> ask_strength(const std::string& engine,
                                                                    const StrengthControl& control) = 0;
    virtual std::optional<Level> ask_time_control(const Level& level) = 0;
    /// How a game is to be reviewed, beginning with `settings`.
    virtual std::optional<ReviewSettings> ask_review(const ReviewSettings& settings) = 0;

    /// How a game of two people has ended, beginning with what the rules say of it.
    virtual std::optional<GameOutcome> ask_result(const std::optional<GameOutcome>& known) = 0;

    /// The game's tags with what the person has done to them; those of the start may be missing.
    virtual std::optional<TagList> edit_tags(const TagList& tags) = 0;

    /// Which of the games is to be taken up, by its place in the list.
    virtual std::optional<std::size_t> choose_earlier_game(const std::vector<EarlierGame>& games) = 0;

    /// @param installed  the names of the engines that can take part
    virtual TournamentEdit edit_tournament(const Tournament& tournament,
                                           const std::vector<std::string>& installed) = 0;
    virtual TournamentChoice choose_tournament(const std::vector<std::string>& names) = 0;
};

}  // namespace velmora
