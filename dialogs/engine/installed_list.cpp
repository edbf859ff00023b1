#include "dialogs/engine/installed_list.h"

#include <exception>
#include <utility>

#include "dialogs/parts/message_box.h"
#include "views/text/shown_text.h"

namespace velmora {
namespace {

enum Answer { uninstall_answer = 0, cancel_answer = 1, load_answer = 2 };

}  // namespace

InstalledList::InstalledList(Gtk::Window& parent, InstalledEngines installed)
    : ModalDialog("Choose Engine", parent),
      m_installed(std::move(installed)),
      m_list(m_columns, {{m_columns.name, "Engine", 24, true}}) {
    m_installed.read_engines_cfg();
    for (const auto& [name, engine] : m_installed.engines()) {
        m_names.push_back(name);
        m_list.append({shown_bytes(name, longest_cell)});
    }
    m_list.signal_answered().connect([this] { response(load_answer); });
    set_default_size(400, 500);
    body().pack_start(m_list, true, true);
    add_note("An engine that is uninstalled still stands in the list of before, the file “engines.cfg~”.");
    add_answer("UNINSTALL", uninstall_answer);
    add_answer("CANCEL", cancel_answer);
    add_answer("LOAD", load_answer);
    set_default_response(load_answer);
}

std::optional<EngineVariables> InstalledList::choose() {
    m_list.select_first();
    int answer = run();
    while (answer == load_answer && !selected_name()) answer = run();
    const auto name = selected_name();
    if (!name) return std::nullopt;
    if (answer == uninstall_answer) uninstall(*name);
    if (answer != load_answer) return std::nullopt;
    return m_installed.engines().at(*name);
}

std::optional<std::string> InstalledList::selected_name() {
    const auto row = m_list.selected();
    if (!row) return std::nullopt;
    return m_names.at(*row);
}

void InstalledList::uninstall(const std::string& name) {
    m_installed.remove_engine(name);
    try {
        m_installed.write_engines_cfg();
    } catch (const std::exception& error) {
        message_box(*this, "The engine could not be uninstalled", error.what());
    }
}

}  // namespace velmora
