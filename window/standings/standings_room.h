#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "channel/to_window.h"
#include "tournament/live_standings.h"
#include "window/session/message_dispatcher.h"
#include "window/session/window_frame.h"

namespace velmora {

/// The standings of the tournament that is loaded, kept up to date while it is played.
///
/// Results come with the referee's lines. Where these don't fit what is known, when a run was begun anew or
/// the file was changed by somebody else, the file is read again: it is what both have in common.
class StandingsRoom {
public:
    /// Listens to the referee; must outlive its last line.
    StandingsRoom(const WindowFrame& frame, MessageDispatcher& dispatcher);
    StandingsRoom(const StandingsRoom&) = delete;  // the dispatcher knows where it is
    StandingsRoom& operator=(const StandingsRoom&) = delete;

    /// Takes the tournament of that name in place of the one before. One that can't be read leaves none: the
    /// referee, which reads it, too, tells why.
    void load(const std::string& name);

    /// Empty without a tournament.
    const StandingsSheet& sheet() const { return m_sheet; }
    /// Changes whenever the sheet does.
    std::size_t version() const { return m_version; }
    /// How many runs have ended.
    std::size_t ended_runs() const { return m_ended_runs; }

private:
    void begin(const to_window::MatchProgress& progress);
    void end(const to_window::GameOver& line);
    void update();

    const WindowFrame& m_frame;
    std::string m_name;
    std::optional<LiveStandings> m_standings;
    std::int32_t m_game = 0;  // the one that is played, 0 for none
    StandingsSheet m_sheet;
    std::size_t m_version = 0;
    std::size_t m_ended_runs = 0;
};

}  // namespace velmora
