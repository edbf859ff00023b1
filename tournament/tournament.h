#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tournament/tournament_data.h"

namespace velmora {

/// A schedule of games among named engines with its settings and the results so far, kept in a file of its
/// own: <directory>/<name>.trn.
///
/// Whoever plays it takes next_game(), plays, calls set_result() and save(); so the file is all that is
/// needed to go on after a restart. Belongs to one thread: window and referee each have one of their own and
/// share only the file.
///
/// The file and not an object is what window and referee share, because it must survive both: a program
/// that is killed loses the game that was being played and nothing else.
class Tournament {
public:
    /// Keeps its file in the per-user directory, which is looked for and made at each load and save: a
    /// failure there must not keep an owner from being constructed.
    Tournament();
    /// Keeps its file in `directory`, which ends with a slash.
    explicit Tournament(std::string directory);

    /// Empties participants and games and forgets book, flags and event ("?"); rounds, type, site and level
    /// stay as they are.
    void clear();

    /// Empties participants and games.
    void remove_all();

    /// Every game counts as not played.
    void reset_results();

    /// Appends a participant and gives it its id.
    void add_participant(TournamentParticipant participant);

    /// A copy of the participants with their ratings.
    std::vector<TournamentParticipant> participants_list() const { return m_data.participants; }

    /// Reads the tournament `name` (no path, no extension). Throws std::logic_error when there is no such
    /// file, std::runtime_error for one that can't be opened, and what tournament_file::read throws; what was
    /// read by then stays.
    void load(const std::string& name);

    /// Why the last load() failed though there is such a file, in words that name it; empty otherwise.
    ///
    /// Beside the exception, whose texts are fixed for all faults alike and name no line.
    const std::string& load_fault() const { return m_load_fault; }

    /// Writes the file under the name that it was loaded under, a new tournament under its event. The old
    /// file is replaced as a whole or not at all. Throws std::runtime_error
    /// "Tournament::save()  open tournament failed".
    void save();

    /// The same for a tournament that begins anew: what the file held before stays as its backup. Throws also
    /// what back_up() throws, and then nothing has been written.
    ///
    /// Starting again would otherwise wipe out a night's results under the same name without a trace.
    void save_anew();

    /// The event under which this tournament replaces nobody else's results: `event`, or where another
    /// tournament that has some stands under that name, the first of "<event> 2", "<event> 3" ... that is
    /// free. Its own file, which it was loaded from or saved to, is no other tournament.
    std::string free_event(const std::string& event) const;

    /// Makes all games of the schedule that type(), rounds() and the participants ask for, in place of those
    /// there are. Throws std::logic_error for fewer than two participants and std::length_error for more
    /// games than can be held; then there are no games.
    void make_schedule();

    /// Each sets the type and appends the games of one kind of schedule.
    void new_match(std::int32_t rounds);
    void new_gauntlet(std::int32_t rounds);
    void new_roundrobin(std::int32_t rounds);

    /// The first game without a result; one with the number 0 when all have been played.
    TournamentGame next_game() const;

    /// Gives the first game without a result `result`, a single word.
    void set_result(const std::string& result);

    const std::vector<TournamentGame>& games() const { return m_data.games; }
    std::int32_t game_count() const { return m_data.game_count; }
    bool valid() const { return m_valid; }

    const std::string& event() const { return m_data.event; }
    /// Sets the event, which from here on is the file's name too.
    void set_event(const std::string& event);
    const std::string& site() const { return m_data.site; }
    void set_site(const std::string& site) { m_data.site = site; }
    const Level& level() const { return m_data.level; }
    void set_level(const Level& level) { m_data.level = level; }
    std::int32_t rounds() const { return m_data.rounds; }
    void set_rounds(std::int32_t rounds) { m_data.rounds = rounds; }
    TournamentType type() const { return m_data.type; }
    void set_type(TournamentType type) { m_data.type = type; }
    const std::string& opening_book() const { return m_data.opening_book; }
    void set_opening_book(const std::string& path) { m_data.opening_book = path; }
    bool both_colors() const { return m_data.both_colors; }
    void set_both_colors(bool on) { m_data.both_colors = on; }
    bool random_order() const { return m_data.random_order; }
    void set_random_order(bool on) { m_data.random_order = on; }
    bool ignore_time_loss() const { return m_data.ignore_time_loss; }
    void set_ignore_time_loss(bool on) { m_data.ignore_time_loss = on; }

private:
    using Games = std::vector<TournamentGame>;
    using Pairing = Games (*)(const std::vector<TournamentParticipant>&, std::int32_t rounds);

    std::string file_name() const { return m_loaded_name.empty() ? m_data.event : m_loaded_name; }
    void append_games(Pairing pairing, const char* operation, std::int32_t rounds);

    std::function<std::string()> m_directory;
    TournamentData m_data;
    std::string m_loaded_name;  // empty for a new tournament
    std::string m_own_name;     // of the file that holds this tournament, empty as long as there is none
    std::string m_load_fault;
    bool m_valid = false;
};

}  // namespace velmora
