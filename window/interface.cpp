#include "window/interface.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

#include <glibmm/convert.h>
#include <glibmm/main.h>

#include "base/text.h"
#include "engine/store/home_dir.h"
#include "views/text/epd_commands_window.h"
#include "window/session/typed_move.h"

namespace velmora {

namespace {

constexpr unsigned tick_ms = 50;
constexpr unsigned panel_ticks = 100 / tick_ms;
constexpr unsigned wake_up_ticks = 1000 / tick_ms;

std::string_view text_behind_number(std::string_view numbered_line) {
    return numbered_line.substr(numbered_line.find(' ') + 1);
}

/// Of the lines that wait, an engine's search output may be dropped when thousands pile up under a message
/// box.
LineQueue::Class classify(const std::string& numbered_line) {
    const std::string_view line = text_behind_number(numbered_line);
    return {.expendable = line.starts_with("white_info") || line.starts_with("black_info")};
}

/// Nothing when nobody sits in the first seat, who may have left between one question and the next.
std::optional<Protocol> protocol_of_engine(const Manager& manager) {
    try {
        return manager.get_enginevariables().protocol;
    } catch (const std::logic_error&) {
        return std::nullopt;
    }
}

}  // namespace

Interface::Interface(std::string program_path, int board_size)
    : m_queue(classify),
      m_box(Gtk::ORIENTATION_VERTICAL),
      m_board(board_size),
      m_board_with_clocks(m_clocks, m_board, m_evaluation_bar),
      m_move_entry(m_navigation_bar),
      m_session([this] { return m_comment.text(); }),
      m_manager(*this, std::move(program_path)),
      m_link(m_manager),
      m_screen(m_session,
               {*this, m_board, m_clocks, m_navigation_bar, m_fen_entry, m_analysis, m_pgn, m_comment}),
      m_dialogs(*this, m_board),
      m_presenter(m_session, m_screen.all()),
      m_engine(m_screen, m_dialogs, m_link, [this] { return protocol_of_engine(m_manager); }),
      m_dispatcher(m_session, m_screen.all(), m_dialogs, m_link, m_engine),
      m_modes(m_session, m_screen, m_screen, m_screen, m_dialogs, m_link, m_engine),
      m_user_moves(m_session, m_screen, m_screen, m_screen, m_dialogs, m_link),
      m_navigation(m_session, m_screen, m_screen, m_dialogs, m_modes),
      m_navigation_keys(m_navigation),
      m_files(m_session, m_screen, m_screen, m_dialogs, m_link, m_modes),
      m_engines(m_session, m_screen, m_dialogs, m_link, m_modes, m_engine,
                [this] { return m_manager.get_enginevariables(); }),
      m_tournaments(m_session, m_screen, m_dialogs, m_link),
      m_search(m_session, m_screen, m_engine, m_dispatcher, m_link,
               [this] { return m_manager.get_enginevariables(); }),
      m_activity(m_session, m_screen, m_engine, m_dispatcher),
      m_review(m_session, m_screen, m_dialogs, m_engine, m_link, m_dispatcher, m_navigation, m_user_moves),
      m_table(m_session, m_screen, m_screen, m_dialogs, m_modes, m_link, m_engine, m_dispatcher,
              m_user_moves),
      m_keeper(m_session, m_screen, m_screen, m_dialogs, m_modes, m_link, m_engine, m_dispatcher,
               m_table.notice(),
               HomeDir::path_for(std::filesystem::current_path().string()) + "earlier_games/"),
      m_premove(m_session, m_screen, m_screen, m_user_moves),
      m_clipboard_flows(m_session, m_screen, m_dialogs, m_files, m_clipboard,
                        [this](const std::string& text) { m_table.notice().say(text); }),
      m_standings(m_screen, m_dispatcher),
      m_panel(
          m_session, m_screen, m_navigation, m_search, m_activity, m_review, m_board, m_evaluation_bar,
          [this] { m_actions.set_active("ShowSidePanel", true); },
          [this] { m_actions.set_active("ShowCommentEditor", true); }),
      m_review_panel(m_session, m_review, m_panel.widget(),
                     [this] { m_actions.set_active("ShowSidePanel", true); }),
      m_standings_panel(m_standings, m_panel.widget(), m_standings_window,
                        [this] { m_actions.set_active("Standings", true); }),
      m_windows(*this,
                [this] {
                    m_session.tell({Change::record, Change::position});
                }),
      m_rooms{m_link,    m_session,     m_dialogs, m_board, m_modes,  m_files,   m_clipboard_flows,
              m_engines, m_tournaments, m_review,  m_table, m_keeper, m_windows, m_panel},
      m_actions(m_rooms) {
    Glib::signal_timeout().connect(sigc::mem_fun(*this, &Interface::on_timeout), tick_ms);
    m_manager_thread = std::thread(std::ref(m_manager));
    m_screen.attach(m_actions);
    m_tournaments.on_loaded([this](const std::string& name) { m_standings.load(name); });
    add_windows();
    lay_out();
    refresh_board();
    m_screen.select_mode(Mode::human_human);
    connect_views();
    show_all_children();
    m_windows.hide_all();
    m_session.tell({Change::clocks});
    m_link.send(to_referee::SetLevel{m_session.level().text()});
    m_screen.set_sensitive(MenuEntry::ponder, false);
    m_engine.show();
    m_actions.set_active("ShowBestMove", true);
    m_panel.widget().signal_hide().connect([this] { m_panel.keep_closed(); });
}

Interface::~Interface() {
    // A second "quit" is harmless, and without one the thread would never end.
    m_link.send(to_referee::Quit());
    m_manager_thread.join();
    // Windows that are still open, and a comment that has the keyboard, would tell the rooms of their end
    // when those have gone.
    m_windows.hide_all();
    m_comment.signal_applied().clear();
}

void Interface::add_windows() {
    m_windows.add("ShowOutput", m_analysis);
    m_windows.add("ShowPgnView", m_pgn);
    m_windows.add("ShowCommentEditor", m_comment);
    auto epd = std::make_unique<EpdCommandsWindow>();
    m_session.on_change([this, &window = *epd](Changes changes) {
        if (changes.has(Change::position) && window.get_visible()) window.set_text(m_session.epd_text());
    });
    m_windows.add("ShowEpdCommands", std::move(epd));
    m_windows.add("Standings", m_standings_window);
    m_windows.add("ShowFEN", m_fen_entry);
    m_windows.add_beside("ShowSidePanel", m_panel.widget());
}

void Interface::lay_out() {
    set_border_width(5);
    m_box.set_homogeneous(false);
    m_box.set_spacing(4);
    if (Gtk::Widget* menu_bar = m_actions.menu_bar()) {
        m_box.pack_start(*menu_bar, Gtk::PACK_SHRINK);
        add_accel_group(m_actions.accelerators());
    }
    m_box.pack_start(m_notice_bar, Gtk::PACK_SHRINK);
    // What the window grows by is the board's.
    m_board_and_panel.pack1(m_board_with_clocks, true, false);
    m_board_and_panel.pack2(m_panel.widget(), false, false);
    m_box.pack_start(m_board_and_panel, Gtk::PACK_EXPAND_WIDGET);
    m_box.pack_start(m_navigation_bar, Gtk::PACK_SHRINK);
    m_box.pack_start(m_fen_entry, Gtk::PACK_SHRINK);
    add(m_box);
    for (Gtk::Window* window : m_windows.windows()) m_navigation_keys.attach(*window);
    m_navigation_keys.attach(*this);
    m_navigation_bar.connect(m_navigation);
    drag_dest_set({Gtk::TargetEntry("text/uri-list")}, Gtk::DEST_DEFAULT_ALL, Gdk::ACTION_COPY);
}

void Interface::connect_views() {
    m_board.signal_move_made().connect([this] {
        const auto [from, to] = m_board.get_move();
        m_user_moves.on_board(from, to);
    });
    m_board.signal_piece_picked().connect([this] { m_user_moves.on_piece_picked(m_board.picked_square()); });
    m_board.signal_wheel().connect([this](int steps) { m_navigation.move_by(steps); });
    m_pgn.signal_clicked().connect([this](int offset) {
        if (offset >= 0) m_navigation.to_text_offset(static_cast<std::size_t>(offset));
    });
    m_fen_entry.signal_fen_entered().connect([this](const std::string& fen) { m_files.enter_fen(fen); });
    m_move_entry.signal_move_entered().connect([this](const std::string& text) {
        const std::string complaint = m_user_moves.on_typed(text);
        if (complaint.empty()) {
            m_move_entry.hide();
        } else {
            m_move_entry.refuse(complaint);
        }
    });
    m_files.on_saved([this] { m_keeper.note_saved(); });
    m_notice_bar.signal_accepted().connect([this] { m_table.notice().accept(); });
    m_notice_bar.signal_closed().connect([this] { m_table.notice().clear(); });
    // Nothing but the clock shows what is left on it.
    m_dispatcher.listen([this](const to_window::Line& line) {
        if (const auto* const time = std::get_if<to_window::SetClock>(&line)) {
            m_clocks.set_time(time->side, time->ms / 10);
        }
    });
    m_windows.on_closed([this](const char* action) { m_actions.set_active(action, false); });
    // What was typed is kept when the box loses the keyboard or its window is closed.
    m_comment.signal_applied().connect([this] { m_session.apply_comment(); });
    signal_map().connect([this] { m_windows.remember_size(); });
}

/// True keeps the window: it goes when the referee has answered, by which time the engines have been told
/// to quit.
bool Interface::on_delete_event(GdkEventAny* /*event*/) {
    m_link.send(to_referee::Quit());
    return true;
}

bool Interface::on_key_press_event(GdkEventKey* event) {
    const auto modifiers = event->state & gtk_accelerator_get_default_mod_mask();
    const auto character = gdk_keyval_to_unicode(event->keyval);
    // Ahead of the menu's accelerators: who types, has selected a text, or takes back a change in the list of
    // moves, has the key.
    constexpr std::array<guint, 4> of_texts = {GDK_KEY_z, GDK_KEY_space, GDK_KEY_c, GDK_KEY_v};
    if (modifiers == GDK_CONTROL_MASK && std::ranges::find(of_texts, event->keyval) != of_texts.end()) {
        const bool types = NavigationKeys::is_typing(*this) ||
                           (event->keyval == GDK_KEY_c && NavigationKeys::has_selected_text(*this));
        const bool edits = get_focus() != nullptr && get_focus()->is_ancestor(m_panel.widget());
        const bool undoes = edits && event->keyval == GDK_KEY_z && m_session.record().can_undo_edit();
        if (types || undoes) return gtk_window_propagate_key_event(gobj(), event) != 0 || types;
    }
    const bool plain = (modifiers & ~unsigned(GDK_SHIFT_MASK)) == 0;
    if (plain && begins_move(character) && !NavigationKeys::is_typing(*this)) {
        m_move_entry.begin(character);
        return true;
    }
    return Gtk::Window::on_key_press_event(event);
}

void Interface::on_drag_data_received(const Glib::RefPtr<Gdk::DragContext>& /*context*/, int /*x*/, int /*y*/,
                                      const Gtk::SelectionData& data, guint /*info*/, guint /*time*/) {
    // The drop ends behind this handler. A dialog in it would hold up the program that the file comes from.
    const std::vector<Glib::ustring> uris = data.get_uris();
    const auto open = sigc::bind(sigc::mem_fun(*this, &Interface::open_dropped), uris);
    Glib::signal_idle().connect(sigc::bind_return(open, false));
}

void Interface::open_dropped(const std::vector<Glib::ustring>& uris) {
    // What waits for an answer comes first.
    if (Gtk::Widget::get_current_modal_grab()) return;
    try {
        std::vector<std::string> paths;
        paths.reserve(uris.size());
        for (const auto& uri : uris) paths.push_back(Glib::filename_from_uri(uri));
        m_files.open(paths);
    } catch (const Glib::Error& error) {
        m_dialogs.tell_user("The file can't be opened", error.what().raw());
    }
}

bool Interface::on_timeout() {
    m_clocks.update();
    process_manager_messages();
    m_premove.tick();
    m_table.tick();
    m_keeper.tick();
    m_notice_bar.show_notice(m_table.notice().text(), m_table.notice().can_accept());
    if (m_ticks % panel_ticks == 0) {
        m_panel.refresh();
        m_review_panel.refresh();
        m_standings_panel.refresh();
    }
    // The referee acts on lines alone, and an engine that has died or fallen silent sends none.
    const bool awaits_engine = m_modes.awaits_engine() || m_review.awaits_engine();
    if (++m_ticks % wake_up_ticks == 0 && awaits_engine) m_link.send(to_referee::WakeUp());
    return true;
}

/// The number goes with the line and not beside it, so that it is the one of the time of writing, however
/// long the line waits.
void Interface::put_command(const std::string& line) { m_queue.put(std::to_string(m_taken) + ' ' + line); }

void Interface::process_manager_messages() {
    m_queue.drain([this](const std::string& numbered_line) {
        const std::string line(text_behind_number(numbered_line));
        m_link.receive(line, text::WordReader(numbered_line).integer<std::uint64_t>().value_or(0));
        // An exception that reached the toolkit would stop the tick for good.
        try {
            m_dispatcher.process(line);
        } catch (const std::exception& error) {
            std::cerr << "The line \"" << line << "\" failed: " << error.what() << '\n';
        } catch (...) {
            std::cerr << "The line \"" << line << "\" failed\n";
        }
    });
}

void Interface::tell_user(const std::string& headline, const std::string& details) {
    m_dialogs.tell_user(text::underscores_to_blanks(headline), text::underscores_to_blanks(details));
}

}  // namespace velmora
