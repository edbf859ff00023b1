#include "window/menu/actions.h"

#include <iostream>

#include <glibmm/error.h>

#include "views/board/chess_board.h"
#include "window/menu/rooms.h"
#include "window/panel/analysis_panel.h"

namespace velmora {

namespace {

using Kind = ActionRow::Kind;

const ActionRow separator{};

ActionRow menu(const char* name, const char* label) { return {Kind::menu, name, label}; }

ActionRow entry(const char* name, const char* label, void (*choose)(Rooms& rooms),
                const char* accelerator = "") {
    return {Kind::plain, name, label, [choose](Rooms& rooms, bool) { choose(rooms); }, accelerator};
}

ActionRow switch_entry(const char* name, const char* label, void (*change)(Rooms& rooms, bool on)) {
    return {Kind::toggle, name, label, change};
}

/// The toggle of the secondary window that SecondaryWindows knows by the action's name.
ActionRow window_entry(const char* name, const char* label, const char* accelerator = "") {
    return {Kind::toggle, name, label, [name](Rooms& rooms, bool on) { rooms.windows.show(name, on); },
            accelerator};
}

ActionRow mode_entry(Mode mode, const char* label) {
    return {Kind::radio, action_name(mode), label,
            [mode](Rooms& rooms, bool on) { rooms.modes.on_switched(mode, on); }};
}

}  // namespace

const std::vector<ActionRow>& Actions::table() {
    static const std::vector<ActionRow> rows = {
        menu("FileMenu", "_File"),
        entry("NewGame", "New game", [](Rooms& rooms) { rooms.modes.new_game(); }),
        separator,
        entry("LoadGame", "Load game", [](Rooms& rooms) { rooms.files.load_game(); }),
        entry("SaveGame", "Save game", [](Rooms& rooms) { rooms.files.save_game(); }),
        separator,
        entry("LoadPosition", "Load position", [](Rooms& rooms) { rooms.files.load_position(); }),
        entry(
            "LoadNextPosition", "Load next position", [](Rooms& rooms) { rooms.files.load_next_position(); },
            "<control>n"),
        entry(
            "LoadPreviousPosition", "Load previous position",
            [](Rooms& rooms) { rooms.files.load_previous_position(); }, "<control>p"),
        entry("SavePosition", "Save position", [](Rooms& rooms) { rooms.files.save_position(); }),
        separator,
        entry("PolyglotBook", "Polyglot book", [](Rooms& rooms) { rooms.files.choose_polyglot_book(); }),
        separator,
        entry("Quit", "Quit", [](Rooms& rooms) { rooms.manager.send(to_referee::Quit()); }),

        menu("ViewMenu", "View"),
        entry(
            "Flip", "Flip View",
            [](Rooms& rooms) {
                rooms.board.flip();
                rooms.session.tell({Change::record, Change::position});
            },
            "<control>f"),
        window_entry("ShowOutput", "Show Engine Output"),
        window_entry("ShowPgnView", "Show PGN"),
        window_entry("ShowCommentEditor", "Show Comment Editor"),
        window_entry("ShowEpdCommands", "Show EPD Code"),
        window_entry("ShowFEN", "Show FEN"),
        separator,
        window_entry("ShowSidePanel", "Show Side Panel", "F9"),
        switch_entry("ShowBestMove", "Show Best Move",
                     [](Rooms& rooms, bool on) { rooms.panel.show_best_moves(on); }),

        menu("ModeMenu", "Mode"),
        mode_entry(Mode::setup, "Setup"),
        mode_entry(Mode::human_human, "Human - human"),
        mode_entry(Mode::human_computer, "Human - computer"),
        mode_entry(Mode::analyze_position, "Analysis"),
        mode_entry(Mode::learn_openings, "Learn Opening"),
        mode_entry(Mode::tournament, "Tournament"),
        separator,
        entry("StartThinking", "Start thinking", [](Rooms& rooms) { rooms.modes.start_thinking(); }),

        menu("GameMenu", "Game"),
        entry("ReviewGame", "Review game...", [](Rooms& rooms) { rooms.review.run().begin(); }),
        entry(
            "NextMistake", "Next mistake", [](Rooms& rooms) { rooms.review.to_next_mistake(); }, "F8"),
        entry(
            "PreviousMistake", "Previous mistake", [](Rooms& rooms) { rooms.review.to_previous_mistake(); },
            "<shift>F8"),
        entry(
            "BetterMove", "Find the better move", [](Rooms& rooms) { rooms.review.better_move().ask(); },
            "F7"),
        separator,
        entry("Resign", "Resign", [](Rooms& rooms) { rooms.table.resign(); }),
        entry("OfferDraw", "Offer draw", [](Rooms& rooms) { rooms.table.offer_draw(); }),
        entry(
            "TakeBack", "Take back", [](Rooms& rooms) { rooms.table.take_back(); }, "<control>z"),
        entry(
            "MoveNow", "Move now", [](Rooms& rooms) { rooms.table.move_now(); }, "<control>space"),
        entry("ClaimDraw", "Claim draw", [](Rooms& rooms) { rooms.table.claim_draw(); }),
        entry("NoteResult", "Result...", [](Rooms& rooms) { rooms.table.note_result(); }),
        switch_entry("LoseOnTime", "Lose on time",
                     [](Rooms& rooms, bool on) { rooms.table.set_lose_on_time(on); }),
        separator,
        entry("EarlierGames", "Earlier games...", [](Rooms& rooms) { rooms.games.choose(); }),
        separator,
        entry(
            "CopyPosition", "Copy position", [](Rooms& rooms) { rooms.clipboard.copy_position(); },
            "<control>c"),
        entry(
            "CopyGame", "Copy game", [](Rooms& rooms) { rooms.clipboard.copy_game(); }, "<control><shift>c"),
        entry(
            "Paste", "Paste", [](Rooms& rooms) { rooms.clipboard.paste(); }, "<control>v"),
        entry("Tags", "Tags...", [](Rooms& rooms) { rooms.clipboard.edit_tags(); }),

        menu("TournamentMenu", "Tournament"),
        entry("New", "New / Edit", [](Rooms& rooms) { rooms.tournaments.edit(); }),
        entry("Load", "Load", [](Rooms& rooms) { rooms.tournaments.load(); }),
        separator,
        window_entry("Standings", "Standings"),

        menu("EngineMenu", "Engine"),
        entry("Engine1", "Load engine...", [](Rooms& rooms) { rooms.engines.load(); }),
        entry("Install", "Install engine...", [](Rooms& rooms) { rooms.engines.install(); }),
        entry("LoadInstalled", "Load installed engine...",
              [](Rooms& rooms) { rooms.engines.load_installed(); }),
        separator,
        entry("FindEngines", "Find engines...", [](Rooms& rooms) { rooms.engines.find(); }),
        entry("Strength", "Strength...", [](Rooms& rooms) { rooms.engines.choose_strength(); }),

        menu("OptionMenu", "Options"),
        entry("TimeControl", "Time Control...", [](Rooms& rooms) { rooms.engines.choose_time_control(); }),
        entry("Engine1_options", "Engine...", [](Rooms& rooms) { rooms.engines.edit_options(); }),
        switch_entry("Ponder", "Ponder",
                     [](Rooms& rooms, bool on) { rooms.manager.send(to_referee::Ponder{on}); }),
        switch_entry("Debug", "Debug",
                     [](Rooms& rooms, bool on) {
                         rooms.manager.set_logging(on);
                         rooms.manager.send(to_referee::Debug{on});
                     }),

        menu("InfoMenu", "Info"),
        entry("About", "About...", [](Rooms& rooms) { rooms.dialogs.about(); }),
    };
    return rows;
}

std::string Actions::ui_string() {
    std::string menus;
    for (const ActionRow& row : table()) {
        if (row.kind == Kind::separator) {
            menus += "<separator/>";
        } else if (row.kind == Kind::menu) {
            menus += std::string(menus.empty() ? "" : "</menu>") + "<menu action=\"" + row.name + "\">";
        } else {
            menus += std::string("<menuitem action=\"") + row.name + "\"/>";
        }
    }
    return R"(<ui><menubar name="MenuBar">)" + menus + "</menu></menubar></ui>";
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

/// The rows outlive the actions, being static; so the slots refer to them and to no copy.
void Actions::add(const ActionRow& row) {
    Glib::RefPtr<Gtk::Action> action;
    switch (row.kind) {
        case Kind::separator:
            return;
        case Kind::menu:
        case Kind::plain: {
            action = Gtk::Action::create(row.name, row.label);
            if (row.run) action->signal_activate().connect([this, &row] { row.run(m_rooms, true); });
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
                [this, &row, state = toggle.get()] { row.run(m_rooms, state->get_active()); });
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
