#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtkmm/scrolledwindow.h>
#include <gtkmm/texttag.h>

#include "game/move_sheet.h"
#include "views/input/wheel_steps.h"
#include "views/moves/move_request.h"
#include "views/moves/move_rows.h"
#include "views/moves/moves_menu.h"
#include "views/moves/moves_text.h"

namespace velmora {

/// The moves of a game with variations, comments and chips, the current one marked and in view. It shows what
/// a sheet says and tells what the person wants; the rules and the game are somebody else's.
///
/// A text view and no drawing of its own: it wraps, finds the character under the pointer, follows the theme
/// and the font, lays out what is in sight first, and a screen reader can read it by line. What costs time in
/// it is inserting and tagging, so a new sheet is compared with the shown one row by row, and only rows that
/// differ are replaced: all of a game of 300 moves at first, one row with each move.
///
/// Keys: Up and Down go to the alternative ahead or behind, Delete deletes from the current move on, Ctrl+Z
/// takes that back, Menu and Shift+F10 open the context menu. Left, Right, Home and End are left to the
/// window, which has them for everything in it. The wheel steps; with Ctrl it scrolls.
class MovesView : public Gtk::ScrolledWindow, private ReadableMoves {
public:
    MovesView();

    /// Shows another sheet. The mark goes with the node that is current, as far as the sheet has it.
    void set_sheet(MoveSheet sheet);

    /// Marks the move of a node, or its result, and scrolls as far as needed to have it in view. One that the
    /// sheet doesn't have, as the start of the game, marks nothing and scrolls to the top.
    void set_current(std::int32_t node);

    void set_layout(MovesLayout layout);
    MovesLayout layout() const { return m_layout; }

    /// A move was chosen, by its node.
    sigc::signal<void, std::int32_t>& signal_move_chosen() { return m_move_chosen; }
    /// Something is to be done to the game.
    sigc::signal<void, const MoveRequest&>& signal_request() { return m_request; }
    /// The wheel: so many moves on, or back where it is negative.
    sigc::signal<void, int>& signal_step() { return m_step; }

protected:
    void on_style_updated() override;

private:
    std::size_t count() const override { return m_rows.places.size(); }
    std::string name(std::size_t index) const override;
    Gdk::Rectangle place(std::size_t index) const override;
    bool is_current(std::size_t index) const override { return index == m_current_place; }
    void press(std::size_t index) override { m_move_chosen.emit(item_at(index).node); }

    void find_signs();
    std::string sign(const std::string& glyph) const;
    void create_tags();
    void color_tags();
    void set_columns(int width);
    void replace_rows(MoveRows rows);
    void insert_rows(std::size_t begin, std::size_t end);
    void tag_rows(std::size_t begin, std::size_t end);
    const Glib::RefPtr<Gtk::TextTag>& tag_of(const MoveRow& row) const;
    void unmark();
    void mark_current();
    void scroll_to_current();

    const SheetItem& item_at(std::size_t place) const { return m_sheet.items()[m_rows.places[place].item]; }
    /// The move that is current; null at the start and at the result.
    const SheetItem* current_move() const;
    Gtk::TextIter iter_at(std::size_t row, int character) const;
    /// The place under a point of the text's window, `MoveSheet::none` where there is no move.
    std::size_t place_at(double x, double y) const;

    bool on_pressed(GdkEventButton* event);
    bool on_key(GdkEventKey* event);
    bool on_wheel(GdkEventScroll* event);
    bool on_menu_key();
    bool choose(std::int32_t node);

    MoveSheet m_sheet;
    MoveRows m_rows;
    std::vector<int> m_row_begin = {0};  // characters of the text ahead of each row and of its end
    MovesLayout m_layout = MovesLayout::columns;
    std::int32_t m_current = 0;
    std::size_t m_current_place = MoveSheet::none;
    std::pair<int, int> m_marked;                // characters of the text that carry the mark
    std::map<std::string, std::string> m_signs;  // by glyph, as the font can show them
    std::pair<int, int> m_column_stops;          // of White and Black, in pixels behind the margin
    WheelSteps m_wheel;

    MovesText m_text{*this};
    Glib::RefPtr<Gtk::TextBuffer> m_buffer = m_text.get_buffer();
    Glib::RefPtr<Gtk::TextTag> m_columns, m_main_text, m_comment, m_chip, m_current_tag;
    std::vector<Glib::RefPtr<Gtk::TextTag>> m_depths;  // by depth less 1; the last one serves all beyond
    const SignOf m_sign_of = [this](const std::string& glyph) { return sign(glyph); };
    MovesMenu m_menu{[this](const MoveRequest& request) { m_request.emit(request); }};

    sigc::signal<void, std::int32_t> m_move_chosen;
    sigc::signal<void, const MoveRequest&> m_request;
    sigc::signal<void, int> m_step;
};

}  // namespace velmora
