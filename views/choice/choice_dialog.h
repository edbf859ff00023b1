#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <gdkmm/pixbuf.h>
#include <gtkmm/dialog.h>
#include <gtkmm/drawingarea.h>
#include <gtkmm/eventbox.h>

#include "views/choice/choice_grid.h"

namespace velmora {

/// One image a cell, in the order of the grid.
using ChoiceImages = std::vector<Glib::RefPtr<Gdk::Pixbuf>>;

/// The inner layer of a chooser: paints the images in their grid.
class ChoiceDraw : public Gtk::DrawingArea {
public:
    /// `size` is what the widget asks for, in pixels.
    ChoiceDraw(ChoiceGrid grid, ChoiceImages images, CellSize size);

    const ChoiceGrid& grid() const { return m_grid; }
    CellSize cell() const;
    /// The cell that the keyboard is at; none until it is used.
    std::optional<int> marked() const { return m_marked; }
    void mark(int index);

    bool on_draw(const Cairo::RefPtr<Cairo::Context>& cr) override;

private:
    void paint_image(const Cairo::RefPtr<Cairo::Context>& cr, int index, Place corner);

    ChoiceGrid m_grid;
    ChoiceImages m_images;
    std::optional<int> m_marked;
};

/// The middle layer: takes the click, or the arrow keys and Return.
class ChoiceEvent : public Gtk::EventBox {
public:
    ChoiceEvent(const ChoiceGrid& grid, ChoiceImages images, CellSize size);

    /// The code of the last cell that was clicked, 0 at first. A click beside the grid leaves it.
    std::int32_t code() const { return m_code; }
    sigc::signal<void>& signal_chosen() { return m_chosen; }

protected:
    bool on_button_press_event(GdkEventButton* event) override;
    bool on_key_press_event(GdkEventKey* event) override;

private:
    sigc::signal<void> m_chosen;
    ChoiceDraw m_drawing;
    std::int32_t m_code = 0;
};

/// The outer layer: a modal dialog that runs in its constructor and ends with the first click.
///
/// The same for both choosers, which differ in grid and images alone. One click is the answer and there is
/// no "OK", since a promotion comes in the middle of a game, and the clocks run.
class ChoiceDialog : public Gtk::Dialog {
public:
    /// The code that was chosen, 0 when the dialog was closed without a choice.
    std::int32_t choice() const { return m_event.code(); }

protected:
    ChoiceDialog(Gtk::Window& parent, const std::string& title, const ChoiceGrid& grid, ChoiceImages images,
                 CellSize size);

private:
    ChoiceEvent m_event;
};

}  // namespace velmora
