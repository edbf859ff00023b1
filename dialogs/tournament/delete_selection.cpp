#include "dialogs/tournament/delete_selection.h"

#include "views/text/shown_text.h"

namespace velmora {

DeleteSelection::DeleteSelection(Stopwatch::TimeSource now)
    : m_store(Gtk::ListStore::create(m_columns)), m_gate(now) {
    m_view.set_model(m_store);
    m_view.append_column("Engine", m_columns.engine);
    set_policy(Gtk::POLICY_AUTOMATIC, Gtk::POLICY_AUTOMATIC);
    set_shadow_type(Gtk::SHADOW_IN);
    Gtk::ScrolledWindow::add(m_view);
}

bool DeleteSelection::add(const std::string& name, Force force) {
    if (force == Force::no && !m_gate.accept()) return false;
    const auto row = *m_store->append();
    row[m_columns.engine] = shown_text(name, longest_cell);
    row[m_columns.name] = name;
    return true;
}

bool DeleteSelection::remove(const std::string& name, Force force) {
    if (force == Force::no && !m_gate.accept()) return false;
    for (auto row = m_store->children().begin(); row != m_store->children().end(); ++row) {
        if (row->get_value(m_columns.name) != name) continue;
        m_store->erase(row);
        break;
    }
    return true;
}

std::vector<std::string> DeleteSelection::selected() const {
    std::vector<std::string> names;
    for (const auto& row : m_store->children()) names.push_back(row.get_value(m_columns.name));
    return names;
}

std::string DeleteSelection::current() {
    const auto row = m_view.get_selection()->get_selected();
    return row ? row->get_value(m_columns.name) : std::string();
}

}  // namespace velmora
