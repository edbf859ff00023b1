#pragma once

#include <string_view>

#include "channel/to_referee.h"
#include "manager/analyze_mode.h"
#include "manager/engine_seats.h"
#include "manager/learn_mode.h"
#include "manager/match_mode.h"
#include "manager/play_mode.h"
#include "manager/referee_state.h"
#include "manager/review_mode.h"
#include "manager/table_talk.h"

namespace velmora {

/// Carries out the commands of the window, one function a command.
///
/// The line is decoded to a value first; the overload is chosen by the value's type, so that a command
/// which is added to the language and not handled here doesn't compile.
///
/// Commands that belong to one mode are passed on to it; what stands here is what concerns several: that a
/// load ends a match, that a new position silences the engines.
class InterfaceCommands {
public:
    InterfaceCommands(RefereeState& state, EngineSeats& seats, AnalyzeMode& analyze, PlayMode& play,
                      LearnMode& learn, MatchMode& match, ReviewMode& review, TableTalk& talk);

    /// Carries out one line, sender id included, and gives the end of the game that it brings about. An
    /// unknown word does nothing; a sender other than 0 throws std::logic_error.
    GameEnd process(std::string_view line);

private:
    void run(const to_referee::AnalyzePosition& command);
    void run(const to_referee::Book& command);
    GameEnd run(const to_referee::ClaimDraw& /*command*/) { return m_talk.claim_draw(); }
    void run(const to_referee::Debug& command);
    GameEnd run(const to_referee::Flag& /*command*/) { return m_talk.flag(); }
    void run(const to_referee::Go& command);
    void run(const to_referee::HumanHuman& command);
    void run(const to_referee::LearnOpenings& command);
    void run(const to_referee::SetLevel& command);
    void run(const to_referee::Load& command);
    void run(const to_referee::LoadTournament& command);
    void run(const to_referee::LoseOnTime& command) { m_talk.set_lose_on_time(command.on); }
    void run(const to_referee::MoveNow& /*command*/) { m_talk.move_now(); }
    void run(const to_referee::NewGame& command);
    GameEnd run(const to_referee::NoteResult& command) { return m_talk.note_result(command); }
    GameEnd run(const to_referee::OfferDraw& /*command*/) { return m_talk.offer_draw(); }
    void run(const to_referee::PlayOther& command);
    void run(const to_referee::PolyglotBook& command);
    void run(const to_referee::Ponder& command);
    void run(const to_referee::Quit& command);
    GameEnd run(const to_referee::Resign& /*command*/) { return m_talk.resign(); }
    void run(const to_referee::Review& command);
    /// It has ended already, as by every command that ends it.
    void run(const to_referee::ReviewStop& /*command*/) {}
    void run(const to_referee::SetBoard& command);
    void run(const to_referee::SetClock& command) { m_talk.set_clock(command); }
    void run(const to_referee::SetGame& command);
    void run(const to_referee::SetOption& command);
    void run(const to_referee::StartTournament& command);
    void run(const to_referee::TakeBack& /*command*/) { m_talk.take_back(); }
    void run(const to_referee::UserMove& command);
    void run(const to_referee::WakeUp& /*command*/) {}
    void make_way_for_position();

    RefereeState& m_state;
    EngineSeats& m_seats;
    AnalyzeMode& m_analyze;
    PlayMode& m_play;
    LearnMode& m_learn;
    MatchMode& m_match;
    ReviewMode& m_review;
    TableTalk& m_talk;
};

}  // namespace velmora
