#include "window/menu/actions.h"

#include <iostream>

#include <glibmm/error.h>

#include "window/menu/rooms.h"

namespace velmora {

namespace {

using Kind = ActionRow::Kind;

template <Mode mode>
void switch_mode(Rooms& rooms, bool on) {
    rooms.modes.on_switched(mode, on);
}

template <SecondaryWindow window>
void show_window(Rooms& rooms, bool on) {
    rooms.windows.show(window, on);
}

}  // namespace

const std::vector<ActionRow>& Actions::table() {
    static const std::vector<ActionRow> rows = {
        {"FileMenu", "_File"},
        {"NewGame", "New game", Kind::plain, [](Rooms& rooms, bool) { rooms.modes.new_game(); }},
        {"LoadGame", "Load game", Kind::plain, [](Rooms& rooms, bool) { rooms.files.load_game(); }},
        {"SaveGame", "Save game", Kind::plain, [](Rooms& rooms, bool) { rooms.files.save_game(); }},
        {"LoadPosition", "Load position", Kind::plain,
         [](Rooms& rooms, bool) { rooms.files.load_position(); }},
        {"LoadNextPosition", "Load next position", Kind::plain,
         [](Rooms& rooms, bool) { rooms.files.load_next_position(); }, "<control>n"},
        {"LoadPreviousPosition", "Load previous position", Kind::plain,
         [](Rooms& rooms, bool) { rooms.files.load_previous_position(); }, "<control>p"},
        {"SavePosition", "Save position", Kind::plain,
         [](Rooms& rooms, bool) { rooms.files.save_position(); }},
        {"PolyglotBook", "Polyglot book", Kind::plain,
         [](Rooms& rooms, bool) { rooms.files.choose_polyglot_book(); }},
        {"Quit", "Quit", Kind::plain, [](Rooms& rooms, bool) { rooms.manager.send(to_referee::Quit()); }},
        {"ViewMenu", "View"},
        {"Flip", "Flip View", Kind::plain, [](Rooms& rooms, bool) { rooms.windows.flip_board(); }},
        {"ShowOutput", "Show Engine Output", Kind::toggle, show_window<SecondaryWindow::analysis>},
        {"ShowPgnView", "Show PGN", Kind::toggle, show_window<SecondaryWindow::pgn>},
        {"ShowCommentEditor", "Show Comment Editor", Kind::toggle, show_window<SecondaryWindow::comment>},
        {"ShowEpdCommands", "Show EPD Code", Kind::toggle, show_window<SecondaryWindow::epd>},
        {"ShowFEN", "Show FEN", Kind::toggle, show_window<SecondaryWindow::fen>},
        {"ModeMenu", "Mode"},
        {"Setup", "Setup", Kind::radio, switch_mode<Mode::setup>},
        {"HumanHuman", "Human - human", Kind::radio, switch_mode<Mode::human_human>},
        {"HumanComputer", "Human - computer", Kind::radio, switch_mode<Mode::human_computer>},
        {"AnalyzePosition", "Analysis", Kind::radio, switch_mode<Mode::analyze_position>},
        {"LearnOpenings", "Learn Opening", Kind::radio, switch_mode<Mode::learn_openings>},
        {"Tournament", "Tournament", Kind::radio, switch_mode<Mode::tournament>},
        {"StartThinking", "Start thinking", Kind::plain,
         [](Rooms& rooms, bool) { rooms.modes.start_thinking(); }},
        {"TournamentMenu", "Tournament"},
        {"New", "New / Edit", Kind::plain, [](Rooms& rooms, bool) { rooms.tournaments.edit(); }},
        {"Load", "Load", Kind::plain, [](Rooms& rooms, bool) { rooms.tournaments.load(); }},
        {"EngineMenu", "Engine"},
        {"Engine1", "Load engine...", Kind::plain, [](Rooms& rooms, bool) { rooms.engines.load(); }},
        {"Install", "Install engine...", Kind::plain, [](Rooms& rooms, bool) { rooms.engines.install(); }},
        {"LoadInstalled", "Load installed engine...", Kind::plain,
         [](Rooms& rooms, bool) { rooms.engines.load_installed(); }},
        {"OptionMenu", "Options"},
        {"TimeControl", "Time Control...", Kind::plain,
         [](Rooms& rooms, bool) { rooms.engines.choose_time_control(); }},
        {"Engine1_options", "Engine...", Kind::plain,
         [](Rooms& rooms, bool) { rooms.engines.edit_options(); }},
        {"Ponder", "Ponder", Kind::toggle,
         [](Rooms& rooms, bool on) { rooms.manager.send(to_referee::Ponder{on}); }},
        {"Debug", "Debug", Kind::toggle,
         [](Rooms& rooms, bool on) {
             rooms.manager.set_logging(on);
             rooms.manager.send(to_referee::Debug{on});
         }},
        {"InfoMenu", "Info"},
        {"About", "About...", Kind::plain, [](Rooms& rooms, bool) { rooms.windows.about(); }},
    };
    return rows;
}

const char* Actions::ui_string() {
    return R"(<ui>
  <menubar name="MenuBar">
    <menu action="FileMenu">
      <menuitem action="NewGame"/>
      <separator/>
      <menuitem action="LoadGame"/>
      <menuitem action="SaveGame"/>
      <separator/>
      <menuitem action="LoadPosition"/>
      <menuitem action="LoadNextPosition"/>
      <menuitem action="LoadPreviousPosition"/>
      <menuitem action="SavePosition"/>
      <separator/>
      <menuitem action="PolyglotBook"/>
      <separator/>
      <menuitem action="Quit"/>
    </menu>
    <menu action="ViewMenu">
      <menuitem action="Flip"/>
      <menuitem action="ShowOutput"/>
      <menuitem action="ShowPgnView"/>
      <menuitem action="ShowCommentEditor"/>
      <menuitem action="ShowEpdCommands"/>
      <menuitem action="ShowFEN"/>
    </menu>
    <menu action="ModeMenu">
      <menuitem action="Setup"/>
      <menuitem action="HumanHuman"/>
      <menuitem action="HumanComputer"/>
      <menuitem action="AnalyzePosition"/>
      <menuitem action="LearnOpenings"/>
      <menuitem action="Tournament"/>
      <separator/>
      <menuitem action="StartThinking"/>
    </menu>
    <menu action="TournamentMenu">
      <menuitem action="New"/>
      <menuitem action="Load"/>
    </menu>
    <menu action="EngineMenu">
      <menuitem action="Engine1"/>
      <menuitem action="Install"/>
      <menuitem action="LoadInstalled"/>
    </menu>
    <menu action="OptionMenu">
      <menuitem action="TimeControl"/>
      <menuitem action="Engine1_options"/>
      <menuitem action="Ponder"/>
      <menuitem action="Debug"/>
    </menu>
    <menu action="InfoMenu">
      <menuitem action="About"/>
    </menu>
  </menubar>
</ui>)";
}

Actions::Actions(Rooms& rooms)
    : m_rooms(rooms), m_group(Gtk::ActionGroup::create()), m_ui(Gtk::UIManager::create()) {
    for (const ActionRow& row : table()) add(row);
    m_ui->insert_action_group(m_group);
    try {
        m_ui->add_ui_from_string(ui_string());
    } catch (const Glib::Error& error) {
        std::cerr << "building menus failed: " << error.what().raw() << '\n';
    }
}

void Actions::add(const ActionRow& row) {
    Glib::RefPtr<Gtk::Action> action;
    switch (row.kind) {
        case Kind::menu:
        case Kind::plain: {
            action = Gtk::Action::create(row.name, row.label);
            if (row.run) action->signal_activate().connect([this, run = row.run] { run(m_rooms, true); });
            break;
        }
        case Kind::toggle:
        case Kind::radio: {
            Glib::RefPtr<Gtk::ToggleAction> toggle;
            if (row.kind == Kind::radio) {
                toggle = Gtk::RadioAction::create(m_modes, row.name, row.label);
            } else {
                toggle = Gtk::ToggleAction::create(row.name, row.label);
            }
            // One signal serves a radio action: of the two that change, the one switched off is told first.
            toggle->signal_toggled().connect(
                [this, run = row.run, state = toggle.get()] { run(m_rooms, state->get_active()); });
            action = toggle;
            break;
        }
    }
    m_group->add(action, Gtk::AccelKey(row.accelerator));
}

Gtk::Widget* Actions::menu_bar() { return m_ui->get_widget("/MenuBar"); }

Glib::RefPtr<Gtk::AccelGroup> Actions::accelerators() { return m_ui->get_accel_group(); }

Glib::RefPtr<Gtk::ToggleAction> Actions::toggle(const char* action) const {
    return Glib::RefPtr<Gtk::ToggleAction>::cast_dynamic(m_group->get_action(action));
}

void Actions::set_sensitive(const char* action, bool sensitive) {
    m_group->get_action(action)->set_sensitive(sensitive);
}

void Actions::set_active(const char* action, bool active) { toggle(action)->set_active(active); }

Mode Actions::mode() const {
    for (std::size_t mode = 0; mode < mode_count; ++mode) {
        if (toggle(mode_actions[mode])->get_active()) return static_cast<Mode>(mode);
    }
    return Mode::setup;
}

void Actions::select_mode(Mode mode) { set_active(mode_actions[static_cast<std::size_t>(mode)], true); }

}  // namespace velmora
