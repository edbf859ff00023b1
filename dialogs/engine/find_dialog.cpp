#include "dialogs/engine/find_dialog.h"

#include <algorithm>
#include <cstdlib>

#include <glibmm/main.h>
#include <gtkmm/filechooserdialog.h>
#include <gtkmm/label.h>
#include <gtkmm/liststore.h>
#include <gtkmm/progressbar.h>
#include <gtkmm/scrolledwindow.h>
#include <gtkmm/treeview.h>

#include "base/text.h"
#include "dialogs/parts/modal_dialog.h"
#include "engine/finding/engine_places.h"
#include "engine/finding/engine_search.h"

namespace velmora {

namespace {

constexpr int find_width = 760, find_height = 420;  // pixels, with a font of ordinary size
constexpr int widest_column = 240;                  // pixels, until the person draws it wider
constexpr unsigned look_ms = 100;                   // between two looks at the search
constexpr int choose_folder = 1;                    // a response

/// What has been found, a row each, with a tick for what is to be installed.
class FoundList : public Gtk::ScrolledWindow {
public:
    explicit FoundList(const std::vector<std::string>& installed) : m_installed(installed) {
        m_record.add(m_tick);
        m_record.add(m_can_tick);
        for (auto* const column : {&m_name, &m_author, &m_protocol, &m_path}) m_record.add(*column);
        m_rows = Gtk::ListStore::create(m_record);
        m_view.set_model(m_rows);
        m_view.get_accessible()->set_name("Engines that were found");
        m_tick_cell.signal_toggled().connect([this](const Glib::ustring& path) { toggle(path); });
        const int count = m_view.append_column("Install", m_tick_cell);
        auto* const ticks = m_view.get_column(count - 1);
        ticks->add_attribute(m_tick_cell.property_active(), m_tick);
        ticks->add_attribute(m_tick_cell.property_activatable(), m_can_tick);
        ticks->add_attribute(m_tick_cell.property_sensitive(), m_can_tick);
        m_view.append_column("Name", m_name);
        m_view.append_column("Author", m_author);
        m_view.append_column("Protocol", m_protocol);
        m_view.append_column("Program", m_path);
        for (auto* const column : m_view.get_columns()) {
            column->set_resizable();
            column->set_max_width(widest_column);
        }
        // Space and Enter tick the row.
        m_view.signal_row_activated().connect(
            [this](const Gtk::TreePath& path, Gtk::TreeViewColumn* /*column*/) { toggle(path.to_string()); });
        set_shadow_type(Gtk::SHADOW_IN);
        add(m_view);
    }

    /// Adds those behind the ones that are shown.
    void show_engines(const std::vector<EngineVariables>& engines) {
        for (auto i = m_engines.size(); i < engines.size(); ++i) {
            const auto& engine = engines[i];
            const bool is_there = std::ranges::find(m_installed, engine.filename) != m_installed.end();
            auto row = *m_rows->append();
            row[m_tick] = true;
            row[m_can_tick] = !is_there;
            row[m_name] = text::displayable(engine.engine_name) + (is_there ? " (installed)" : "");
            row[m_author] = text::displayable(engine.author);
            row[m_protocol] = engine.protocol == Protocol::uci ? "UCI" : "xboard";
            row[m_path] = text::displayable(engine.filename);
            m_engines.push_back(engine);
        }
    }

    std::vector<EngineVariables> ticked() const {
        std::vector<EngineVariables> chosen;
        std::size_t i = 0;
        for (const auto& row : m_rows->children()) {
            if (row[m_tick] && row[m_can_tick]) chosen.push_back(m_engines[i]);
            ++i;
        }
        return chosen;
    }

private:
    void toggle(const Glib::ustring& path) {
        auto row = *m_rows->get_iter(path);
        if (row[m_can_tick]) row[m_tick] = !row[m_tick];
    }

    const std::vector<std::string>& m_installed;
    std::vector<EngineVariables> m_engines;  // in row order
    Gtk::TreeModel::ColumnRecord m_record;
    Gtk::TreeModelColumn<bool> m_tick, m_can_tick;
    Gtk::TreeModelColumn<Glib::ustring> m_name, m_author, m_protocol, m_path;
    Glib::RefPtr<Gtk::ListStore> m_rows;
    Gtk::TreeView m_view;
    Gtk::CellRendererToggle m_tick_cell;
};

std::string summary(const EngineSearch::Progress& progress) {
    if (!progress.asked.empty()) return "Asking " + progress.asked + "...";
    std::string text = progress.engines.empty()
                           ? "No engine was found. Install one, such as stockfish, or "
                             "choose the folder that yours lies in."
                           : std::to_string(progress.engines.size()) +
                                 (progress.engines.size() == 1 ? " engine" : " engines") + " found.";
    if (!progress.others.empty()) {
        text += " Without an answer: ";
        for (const auto& path : progress.others)
            text += (&path == &progress.others.front() ? "" : ", ") + path;
    }
    return text;
}

std::string ask_folder(Gtk::Window& parent) {
    Gtk::FileChooserDialog dialog(parent, "Folder of engines", Gtk::FILE_CHOOSER_ACTION_SELECT_FOLDER);
    dialog.add_button("Cancel", Gtk::RESPONSE_CANCEL);
    dialog.add_button("Look there", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);
    return dialog.run() == Gtk::RESPONSE_OK ? dialog.get_filename() : std::string();
}

}  // namespace

std::vector<EngineVariables> find_engines(Gtk::Window& parent, const std::vector<std::string>& installed) {
    ModalDialog dialog("Find engines", parent);
    dialog.set_ordinary_size(find_width, find_height);
    FoundList list(installed);
    Gtk::ProgressBar bar;
    Gtk::Label text;
    text.set_xalign(0);
    text.set_line_wrap();
    text.set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
    text.set_max_width_chars(60);
    bar.get_accessible()->set_name("Search");
    dialog.body().pack_start(list, Gtk::PACK_EXPAND_WIDGET);
    dialog.body().pack_start(bar, Gtk::PACK_SHRINK);
    dialog.body().pack_start(text, Gtk::PACK_SHRINK);
    dialog.add_note(
        "A program is asked by starting it: in the system's folders those known as engines, in a folder of "
        "your choice every program.");
    dialog.add_answer("Choose folder...", choose_folder);
    dialog.add_answer("Cancel", Gtk::RESPONSE_CANCEL);
    dialog.add_answer("Install", Gtk::RESPONSE_OK);
    dialog.set_default_response(Gtk::RESPONSE_OK);

    const char* const search_path = std::getenv("PATH");
    EngineSearch search;
    search.add(known_engine_programs(search_path != nullptr ? search_path : ""));
    const auto look = [&] {
        const auto progress = search.progress();
        list.show_engines(progress.engines);
        text.set_text(text::displayable(summary(progress)));
        bar.set_fraction(progress.total == 0
                             ? 1
                             : static_cast<double>(progress.done) / static_cast<double>(progress.total));
        dialog.set_response_sensitive(Gtk::RESPONSE_OK, !list.ticked().empty());
        return true;
    };
    look();
    sigc::connection timer = Glib::signal_timeout().connect(look, look_ms);
    int answer = dialog.run();
    while (answer == choose_folder) {
        if (const auto folder = ask_folder(dialog); !folder.empty()) search.add(programs_of_folder(folder));
        answer = dialog.run();
    }
    timer.disconnect();
    if (answer != Gtk::RESPONSE_OK) return {};
    return list.ticked();
}

}  // namespace velmora
