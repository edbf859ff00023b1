#include "dialogs/tournament/participants_panel.h"

#include "dialogs/parts/modal_dialog.h"

namespace velmora {

using Force = DeleteSelection::Force;

ParticipantsPanel::ParticipantsPanel(const std::vector<std::string>& installed,
                                     const std::vector<std::string>& chosen, Stopwatch::TimeSource now)
    : Gtk::Box(Gtk::ORIENTATION_VERTICAL, ModalDialog::margin),
      m_hint("A click on an engine moves it to the other list.", Gtk::ALIGN_START),
      m_lists(true),
      m_installed(now),
      m_chosen(now) {
    constexpr int lists_spacing = 30;
    m_lists.set_spacing(lists_spacing);
    m_installed_side.set_spacing(ModalDialog::row_spacing);
    m_chosen_side.set_spacing(ModalDialog::row_spacing);
    m_installed_side.pack_start(m_installed_title, Gtk::PACK_SHRINK);
    m_installed_side.pack_start(m_installed, Gtk::PACK_EXPAND_WIDGET);
    m_chosen_side.pack_start(m_chosen_title, Gtk::PACK_SHRINK);
    m_chosen_side.pack_start(m_chosen, Gtk::PACK_EXPAND_WIDGET);
    m_lists.pack_start(m_installed_side, Gtk::PACK_EXPAND_WIDGET);
    m_lists.pack_start(m_chosen_side, Gtk::PACK_EXPAND_WIDGET);
    pack_start(m_lists, Gtk::PACK_EXPAND_WIDGET);
    pack_start(m_hint, Gtk::PACK_SHRINK);

    for (const auto& name : installed) m_installed.add(name, Force::yes);
    for (const auto& name : chosen) {
        m_chosen.add(name, Force::yes);
        m_installed.remove(name, Force::yes);
    }
    m_installed.signal_row_reached().connect([this] { move(m_installed, m_chosen); });
    m_chosen.signal_row_reached().connect([this] { move(m_chosen, m_installed); });
}

void ParticipantsPanel::move(DeleteSelection& from, DeleteSelection& to) {
    if (m_moving) return;  // the cursor goes on when its row is removed, which nobody clicked
    const std::string name = from.current();
    if (name.empty()) return;
    // One gate decides for both lists: asked apart they could differ by a millisecond, and the engine would
    // stand in both or in none.
    if (!m_installed.accept_click()) return;
    m_moving = true;
    to.add(name, Force::yes);
    from.remove(name, Force::yes);
    m_moving = false;
}

}  // namespace velmora
