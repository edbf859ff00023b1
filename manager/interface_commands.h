#pragma once

#include <string_view>

#include "base/text.h"
#include "manager/analyze_mode.h"
#include "manager/engine_seats.h"
#include "manager/learn_mode.h"
#include "manager/match_mode.h"
#include "manager/play_mode.h"
#include "manager/referee_state.h"

namespace velmora {

/// The commands that the window sends: a table from the first word to a small function.
class InterfaceCommands {
public:
    InterfaceCommands(RefereeState& state, EngineSeats& seats, AnalyzeMode& analyze, PlayMode& play,
                      LearnMode& learn, MatchMode& match);

    /// Carries out one line, sender id included. An unknown word does nothing; a sender other than 0 throws
    /// std::logic_error.
    void process(std::string_view line);

private:
    struct Command;
    static const Command commands[];

    // One for each word; `arguments` stands behind the word.
    void analyzeposition(text::WordReader& arguments);
    void book(text::WordReader& arguments);
    void debug(text::WordReader& arguments);
    void go(text::WordReader& arguments);
    void human_human(text::WordReader& arguments);
    void learnopenings(text::WordReader& arguments);
    void level(text::WordReader& arguments);
    void load(text::WordReader& arguments);
    void load_tournament(text::WordReader& arguments);
    void new_game(text::WordReader& arguments);
    void playother(text::WordReader& arguments);
    void polyglotbook(text::WordReader& arguments);
    void ponder(text::WordReader& arguments);
    void quit(text::WordReader& arguments);
    void setboard(text::WordReader& arguments);
    void setoption(text::WordReader& arguments);
    void start_tournament(text::WordReader& arguments);
    void usermove(text::WordReader& arguments);

    RefereeState& m_state;
    EngineSeats& m_seats;
    AnalyzeMode& m_analyze;
    PlayMode& m_play;
    LearnMode& m_learn;
    MatchMode& m_match;
};

}  // namespace velmora
