#include "window/flows/tournament_flows.h"

#include <iostream>

#include "dialogs/tournament/tournament_dialog.h"
#include "dialogs/tournament/tournament_list.h"
#include "engine/store/home_dir.h"
#include "engine/store/installed_engines.h"
#include "tournament/tournament_store.h"
#include "window/flows/trash.h"

namespace velmora {

void TournamentFlows::edit() {
    try {
        InstalledEngines installed;
        installed.read_engines_cfg();
        TournamentDialog dialog(m_parent, m_tournament, installed.engines());
        switch (dialog.run()) {
            case TournamentDialog::ok: {
                dialog.store(m_tournament);
                m_tournament.save_anew();
                m_manager.send(to_referee::LoadTournament{m_tournament.event()});
                break;
            }
            case TournamentDialog::cancel:
                leave();
                break;
            default:
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
        const auto choice = choose_tournament(m_parent, tournament_store::names(directory));
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
}

void TournamentFlows::leave() {
    m_frame.select_mode(Mode::human_human);
    m_manager.send(to_referee::HumanHuman());
}

}  // namespace velmora
