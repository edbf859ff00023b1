#include "dialogs/engine/install_dialog.h"

#include <exception>
#include <utility>

#include "base/text.h"
#include "dialogs/parts/message_box.h"
#include "dialogs/parts/wrapping_label.h"
#include "views/text/shown_text.h"

namespace velmora {
namespace {

constexpr int option_columns = 4;

/// What the dialog says of an option, empty when it says nothing.
std::string description(const Option& option) {
    if (option.type == "check") return option.name + (option.value == "true" ? ":  yes" : ":  no");
    if (option.type == "button") return "";
    return option.name + ":  " + option.value;
}

/// The list of engines has one line for each value, so a line feed that was pasted must not get there.
std::string entered_line(const Gtk::Entry& entry) {
    return std::string(text::trim_white_space(text::one_line(entry.get_text().raw())));
}

}  // namespace

InstallDialog::InstallDialog(Gtk::Window& parent, EngineVariables engine, InstalledEngines installed)
    : ModalDialog("Install engine", parent), m_engine(std::move(engine)), m_installed(std::move(installed)) {
    m_installed.read_engines_cfg();
    const auto known = m_installed.engines().find(m_engine.name);
    const EngineVariables& rated = known == m_installed.engines().end() ? m_engine : known->second;

    m_grid.set_row_spacing(row_spacing);
    m_grid.set_column_spacing(column_spacing);
    add_field("name", m_name, m_engine.name);
    add_field("Elo: ", m_elo, rated.elo);
    add_field("handicap (%): ", m_handicap, rated.handicap);
    body().pack_start(m_grid, Gtk::PACK_SHRINK);

    m_options.set_row_spacing(row_spacing);
    m_options.set_column_spacing(2 * column_spacing);
    add_options();
    m_scroller.add(m_options);
    if (!m_options.get_children().empty()) body().pack_start(m_scroller, true, true);

    add_answer("CANCEL", Gtk::RESPONSE_CANCEL);
    add_answer("OK", Gtk::RESPONSE_OK);
    set_default_response(Gtk::RESPONSE_OK);
}

void InstallDialog::add_field(const char* label, Gtk::Entry& entry, const std::string& text) {
    constexpr int entry_columns = 3;
    Gtk::Label& name = m_labels.emplace_back(label, Gtk::ALIGN_START);
    name.set_mnemonic_widget(entry);
    entry.set_text(shown_text(text));
    entry.set_hexpand(true);
    entry.set_activates_default(true);
    m_grid.attach(name, 0, m_row);
    m_grid.attach(entry, 1, m_row, entry_columns);
    ++m_row;
}

void InstallDialog::add_options() {
    constexpr std::size_t most_options = 100;
    std::size_t shown = 0;
    int cell = 0;
    for (const auto& [name, option] : m_engine.options) {
        const std::string text = description(option);
        if (text.empty() || ++shown > most_options) continue;
        const bool whole_row = option.type == "string";
        if (whole_row) cell = (cell + option_columns - 1) / option_columns * option_columns;

        Gtk::Label& label = m_labels.emplace_back(shown_text(text), Gtk::ALIGN_START);
        wrap(label, whole_row ? 120 : 36);
        const int width = whole_row ? option_columns : 1;
        m_options.attach(label, cell % option_columns, cell / option_columns, width);
        cell += width;
    }
}

void InstallDialog::install() {
    if (run() != Gtk::RESPONSE_OK) return;
    try {
        store();
    } catch (const std::exception& error) {
        message_box(*this, "The engine could not be installed", error.what());
    }
}

void InstallDialog::store() {
    m_engine.name = entered_line(m_name);
    m_engine.elo = entered_line(m_elo);
    m_engine.handicap = entered_line(m_handicap);
    if (m_engine.name.empty()) return;  // it could never be chosen again
    m_installed.add_engine(m_engine);
    m_installed.write_engines_cfg();
}

}  // namespace velmora
