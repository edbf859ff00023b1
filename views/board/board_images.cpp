#include "views/board/board_images.h"

#include <algorithm>
#include <iostream>

#include <cairomm/context.h>
#include <gdkmm/general.h>

#include "views/board/data_directory.h"

namespace velmora {

namespace {

struct Shade {
    double red, green, blue;
};

void set_shade(const Cairo::RefPtr<Cairo::Context>& cr, const Shade& shade) {
    cr->set_source_rgb(shade.red, shade.green, shade.blue);
}

/// The letter of a piece in its colour with an outline in the other, in the middle of a cell.
void draw_letter(const Cairo::RefPtr<Cairo::Context>& cr, Piece piece, CellSize size) {
    static constexpr Shade white{1, 1, 1}, black{0.1, 0.1, 0.1};
    const std::string letter(1, Piece(piece.kind(), Side::white).letter());
    cr->select_font_face("sans-serif", Cairo::FONT_SLANT_NORMAL, Cairo::FONT_WEIGHT_BOLD);
    cr->set_font_size(0.7 * std::min(size.width, size.height));
    Cairo::TextExtents extents;
    cr->get_text_extents(letter, extents);
    cr->move_to((size.width - extents.width) / 2 - extents.x_bearing,
                (size.height - extents.height) / 2 - extents.y_bearing);
    cr->text_path(letter);
    cr->set_line_width(std::max(2.0, size.width / 20.0));
    cr->set_line_join(Cairo::LINE_JOIN_ROUND);
    set_shade(cr, piece.is_black() ? white : black);
    cr->stroke_preserve();
    set_shade(cr, piece.is_black() ? black : white);
    cr->fill();
}

/// What stands for an image that is not there.
Glib::RefPtr<Gdk::Pixbuf> plain_image(int code, CellSize size) {
    static constexpr Shade light_square{0.92, 0.84, 0.71}, dark_square{0.69, 0.51, 0.36};
    const auto surface = Cairo::ImageSurface::create(Cairo::FORMAT_ARGB32, size.width, size.height);
    const auto cr = Cairo::Context::create(surface);
    if (const Piece piece = piece_of_image(code); !piece.empty()) {
        draw_letter(cr, piece, size);
    } else {
        set_shade(cr, code == light_square_image ? light_square : dark_square);
        cr->paint();
    }
    return Gdk::Pixbuf::create(surface, 0, 0, size.width, size.height);
}

/// A pixbuf would be converted at each paint, its channels being in another order.
Cairo::RefPtr<Cairo::ImageSurface> to_surface(const Glib::RefPtr<Gdk::Pixbuf>& pixbuf) {
    const auto surface =
        Cairo::ImageSurface::create(pixbuf->get_has_alpha() ? Cairo::FORMAT_ARGB32 : Cairo::FORMAT_RGB24,
                                    pixbuf->get_width(), pixbuf->get_height());
    const auto cr = Cairo::Context::create(surface);
    Gdk::Cairo::set_source_pixbuf(cr, pixbuf);
    cr->paint();
    return surface;
}

}  // namespace

void BoardImages::render(CellSize size) {
    // A window of no size yet has cells of no size; no image can be that small.
    const CellSize wanted{std::max(size.width, 1), std::max(size.height, 1)};
    m_size = wanted;
    const std::string directory = data_directory() + image_directory;
    std::string faults;
    std::vector<Glib::RefPtr<Gdk::Pixbuf>> pixbufs;
    for (int code = 0; code < image_count; ++code) {
        pixbufs.push_back(load(code, directory, faults));
        m_surfaces[std::size_t(code)] = to_surface(pixbufs.back());
    }
    m_pixbufs = std::move(pixbufs);
    if (!faults.empty() && !m_reported) {
        m_reported = true;
        std::cerr << "images of the board are missing, plain ones are shown:\n" << faults << std::flush;
    }
}

Glib::RefPtr<Gdk::Pixbuf> BoardImages::load(int code, const std::string& directory,
                                            std::string& faults) const {
    const std::string path = directory + std::string(image_files[std::size_t(code)]);
    try {
        return Gdk::Pixbuf::create_from_file(path, m_size.width, m_size.height, false);
    } catch (const Glib::Error& error) {
        faults += "    " + error.what().raw() + "\n";
        return plain_image(code, m_size);
    }
}

}  // namespace velmora
