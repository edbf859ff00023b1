#include "dialogs/tournament/tournament_list.h"

#include <utility>

#include "dialogs/parts/modal_dialog.h"
#include "views/text/shown_text.h"

namespace velmora {

TournamentList::TournamentList(std::vector<std::string> names)
    : TournamentList(std::move(names), ModelColumns()) {}

TournamentList::TournamentList(std::vector<std::string> names, const ModelColumns& columns)
    : m_names(std::move(names)), m_list(columns, {{columns.name, "Tournament", 30, true}}) {
    for (const auto& name : m_names) m_list.append({shown_bytes(name, longest_cell)});
    pack_start(m_list, Gtk::PACK_EXPAND_WIDGET);
}

std::string TournamentList::selected() {
    const auto row = m_list.selected();
    return row ? m_names.at(*row) : std::string();
}

TournamentChoice choose_tournament(Gtk::Window& parent, const std::vector<std::string>& names) {
    enum Answer { delete_answer = 0, cancel_answer = 1, load_answer = 2 };
    using Action = TournamentChoice::Action;

    ModalDialog dialog("Load Tournament", parent);
    TournamentList list(names);
    list.signal_answered().connect([&dialog] { dialog.response(load_answer); });
    dialog.set_ordinary_size(420, 400);
    dialog.body().pack_start(list, true, true);
    dialog.add_note(
        "DELETE puts a tournament into the trash; where there is none, its file stays under its "
        "name with “~” at the end.");
    dialog.add_answer("DELETE", delete_answer);
    dialog.add_answer("CANCEL", cancel_answer);
    dialog.add_answer("LOAD", load_answer);
    dialog.set_default_response(load_answer);
    list.select_first();

    int answer = dialog.run();
    while (answer == load_answer && list.selected().empty()) answer = dialog.run();
    if (answer == cancel_answer) return {Action::cancel, ""};
    const std::string name = list.selected();
    if (name.empty() || answer < 0) return {};
    return {answer == delete_answer ? Action::remove : Action::load, name};
}

}  // namespace velmora
