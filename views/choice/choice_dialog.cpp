#include "views/choice/choice_dialog.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <gdk/gdkkeysyms.h>
#include <gdkmm/general.h>

namespace velmora {

namespace {

constexpr Place no_move{0, 0};

/// Where an arrow key leads, in columns and rows.
Place step_of(unsigned key) {
    switch (key) {
        case GDK_KEY_Left:
            return {-1, 0};
        case GDK_KEY_Right:
            return {1, 0};
        case GDK_KEY_Up:
            return {0, -1};
        case GDK_KEY_Down:
            return {0, 1};
        default:
            return no_move;
    }
}

bool is_confirmation(unsigned key) {
    return key == GDK_KEY_Return || key == GDK_KEY_KP_Enter || key == GDK_KEY_space;
}

}  // namespace

ChoiceDraw::ChoiceDraw(ChoiceGrid grid, ChoiceImages images, CellSize size)
    : m_grid(std::move(grid)), m_images(std::move(images)) {
    set_size_request(size.width, size.height);
}

CellSize ChoiceDraw::cell() const { return m_grid.cell(get_allocated_width(), get_allocated_height()); }

void ChoiceDraw::mark(int index) {
    m_marked = index;
    queue_draw();
}

bool ChoiceDraw::on_draw(const Cairo::RefPtr<Cairo::Context>& cr) {
    // One ground under all pieces, whatever the theme: both colours are drawn for wood.
    static constexpr double ground[2][3] = {{0.93, 0.86, 0.72}, {0.88, 0.79, 0.63}};
    const CellSize size = cell();
    for (int index = 0; index < int(m_grid.codes.size()); ++index) {
        const int column = index % m_grid.columns, row = index / m_grid.columns;
        const Place corner{column * size.width, row * size.height};
        const double* shade = ground[(column + row) % 2];
        cr->set_source_rgb(shade[0], shade[1], shade[2]);
        cr->rectangle(corner.x, corner.y, size.width, size.height);
        cr->fill();
        paint_image(cr, index, corner);
    }
    if (m_marked) {
        cr->set_source_rgba(0.1, 0.36, 0.18, 0.8);
        cr->set_line_width(3);
        const int row = *m_marked / m_grid.columns;
        cr->rectangle(*m_marked % m_grid.columns * size.width + 2.5, row * size.height + 2.5, size.width - 5,
                      size.height - 5);
        cr->stroke();
    }
    return true;
}

/// The image in the middle of its cell, pixel by pixel as it was rendered unless it is too large.
void ChoiceDraw::paint_image(const Cairo::RefPtr<Cairo::Context>& cr, int index, Place corner) {
    const auto& image = m_images.at(std::size_t(index));
    const CellSize size = cell();
    const double rendered_at = get_scale_factor();
    const double scale = std::min({1 / rendered_at, double(size.width) / image->get_width(),
                                   double(size.height) / image->get_height()});
    // Whole device pixels, or the image would blur.
    const auto offset = [&](int room, int length) {
        return std::floor(std::max(0.0, (room - length * scale) / 2) * rendered_at) / rendered_at;
    };
    cr->save();
    cr->translate(corner.x + offset(size.width, image->get_width()),
                  corner.y + offset(size.height, image->get_height()));
    cr->scale(scale, scale);
    Gdk::Cairo::set_source_pixbuf(cr, image);
    cr->paint();
    cr->restore();
}

ChoiceEvent::ChoiceEvent(const ChoiceGrid& grid, ChoiceImages images, CellSize size)
    : m_drawing(grid, std::move(images), size) {
    add_events(Gdk::BUTTON_PRESS_MASK);
    set_can_focus();
    add(m_drawing);
}

bool ChoiceEvent::on_button_press_event(GdkEventButton* event) {
    const ChoiceGrid& grid = m_drawing.grid();
    if (const auto index = grid.index_at(event->x, event->y, m_drawing.cell())) {
        m_code = grid.codes[std::size_t(*index)];
    }
    m_chosen.emit();
    return true;
}

bool ChoiceEvent::on_key_press_event(GdkEventKey* event) {
    const ChoiceGrid& grid = m_drawing.grid();
    const auto marked = m_drawing.marked();
    if (const Place step = step_of(event->keyval); step != no_move) {
        m_drawing.mark(marked ? grid.moved(*marked, step.x, step.y) : 0);
        return true;
    }
    if (marked && is_confirmation(event->keyval)) {
        m_code = grid.codes[std::size_t(*marked)];
        m_chosen.emit();
        return true;
    }
    return Gtk::EventBox::on_key_press_event(event);
}

ChoiceDialog::ChoiceDialog(Gtk::Window& parent, const std::string& title, const ChoiceGrid& grid,
                           ChoiceImages images, CellSize size)
    : Gtk::Dialog(title, parent, true), m_event(grid, std::move(images), size) {
    set_resizable(false);
    set_position(Gtk::WIN_POS_MOUSE);
    m_event.get_accessible()->set_name(title);
    m_event.get_accessible()->set_description("Click a piece, or pick it by the arrow keys and Return");
    m_event.signal_chosen().connect([this] { response(Gtk::RESPONSE_OK); });
    // Of the title, the window's own buttons and icon leave this much less.
    constexpr int buttons_width = 120;  // pixels
    int width = 0, height = 0;
    create_pango_layout(title)->get_pixel_size(width, height);
    get_content_area()->set_size_request(width + buttons_width, -1);
    get_content_area()->pack_start(m_event);
    show_all_children();
    run();
    hide();
}

}  // namespace velmora
