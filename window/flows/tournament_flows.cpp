#include "window/flows/tournament_flows.h"

#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/store/home_dir.h"
#include "engine/store/installed_engines.h"
#include "tournament/tournament_store.h"
#include "window/flows/trash.h"

namespace velmora {

namespace {

std::vector<std::string> names_of(const InstalledEngines::Map& engines) {
    std::vector<std::string> names;
    names.reserve(engines.size());
    for (const auto& [name, engine] : engines) names.push_back(name);
    return names;
}

/// Takes over what the person has entered, and makes the schedule.
///
/// Throws what Tournament::make_schedule() throws, with the flags as they were, and std::logic_error with
/// words for the person when the event can't be the name of a file. What has been taken over by then stays
/// for the next try.
void enter(Tournament& tournament, const TournamentData& entered, const InstalledEngines::Map& installed) {
    tournament.set_rounds(entered.rounds);
    tournament.set_event(entered.event);
    tournament.set_site(entered.site);
    tournament.set_opening_book(entered.opening_book);
    tournament.set_type(entered.type);
    tournament.remove_all();
    for (const TournamentParticipant& named : entered.participants) {
        const auto engine = installed.find(named.name);
        TournamentParticipant participant =
            engine == installed.end() ? named : participant_of(engine->second);
        participant.name = named.name;
        tournament.add_participant(participant);
    }
    tournament.set_level(entered.level);
    tournament.make_schedule();
    tournament.set_random_order(entered.random_order);
    tournament.set_both_colors(entered.both_colors);
    tournament.set_ignore_time_loss(entered.ignore_time_loss);
    if (const auto fault = tournament_store::name_fault(tournament.event())) throw std::logic_error(*fault);
}

}  // namespace

/// The list of engines is read anew, for one may have been installed since the dialog was open last.
void TournamentFlows::edit() {
    try {
        InstalledEngines installed;
        installed.read_engines_cfg();
        const auto edit = m_dialogs.edit_tournament(m_tournament, names_of(installed.engines()));
        switch (edit.action) {
            case TournamentEdit::Action::ok:
                enter(m_tournament, edit.entered, installed.engines());
                m_tournament.save_anew();
                m_manager.send(to_referee::LoadTournament{m_tournament.event()});
                m_loaded(m_tournament.event());
                break;
            case TournamentEdit::Action::cancel:
                leave();
                break;
            case TournamentEdit::Action::none:
                break;
        }
    } catch (const std::exception& error) {
        std::cerr << "new tournament failed " << error.what() << '\n';
        m_dialogs.tell_user("new tournament failed", error.what());
    }
}

void TournamentFlows::load() {
    try {
        const std::string directory = HomeDir().tournaments_path();
        const auto choice = m_dialogs.choose_tournament(tournament_store::names(directory));
        switch (choice.action) {
            case TournamentChoice::Action::remove:
                put_away(tournament_store::path(directory, choice.name));
                break;
            case TournamentChoice::Action::cancel:
                leave();
                break;
            case TournamentChoice::Action::load:
                load_named(choice.name);
                break;
            case TournamentChoice::Action::none:
                break;
        }
    } catch (const std::exception& error) {
        m_dialogs.tell_user("The tournaments can't be listed", error.what());
    }
}

void TournamentFlows::load_named(const std::string& name) {
    try {
        m_tournament.load(name);
        m_session.set_level(m_tournament.level());
        m_manager.send(to_referee::SetLevel{m_session.level().text()});
    } catch (const std::exception& error) {
        // The referee fails in the same way and tells the person.
        std::cerr << error.what() << '\n';
    }
    m_manager.send(to_referee::LoadTournament{name});
    m_loaded(name);
}

/// "Cancel" also ends a match that is being played.
void TournamentFlows::leave() {
    m_frame.select_mode(Mode::human_human);
    m_manager.send(to_referee::HumanHuman());
}

}  // namespace velmora
