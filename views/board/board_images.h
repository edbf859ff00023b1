#pragma once

#include <array>
#include <string>
#include <vector>

#include <cairomm/surface.h>
#include <gdkmm/pixbuf.h>

#include "views/board/image_code.h"
#include "views/board/square_geometry.h"

namespace velmora {

/// The fourteen images of the board, rendered for one size of a cell.
///
/// The files are vector graphics, whose rendering takes some frames' time; so it is done once a size and
/// both forms are kept, pixbufs for the choosers and surfaces for the board. A program that finds none of
/// its images must still be usable, hence the plain ones.
class BoardImages {
public:
    /// Renders all images at a size in device pixels, from the data directory as it is found now. An image
    /// that cannot be read becomes a plain square or the letter of the piece, and is reported on standard
    /// error once in the life of this object.
    /// In device pixels, since images for logical pixels would be scaled up, and blurred, on a screen with
    /// a scale.
    void render(CellSize size);

    /// The size of the images, 0 by 0 before the first rendering.
    CellSize size() const { return m_size; }
    /// By code; empty before the first rendering.
    const std::vector<Glib::RefPtr<Gdk::Pixbuf>>& pixbufs() const { return m_pixbufs; }
    /// The same images in the form that is quick to paint.
    const Cairo::RefPtr<Cairo::ImageSurface>& surface(int code) const {
        return m_surfaces.at(std::size_t(code));
    }

private:
    Glib::RefPtr<Gdk::Pixbuf> load(int code, const std::string& directory, std::string& faults) const;

    CellSize m_size;
    std::vector<Glib::RefPtr<Gdk::Pixbuf>> m_pixbufs;
    std::array<Cairo::RefPtr<Cairo::ImageSurface>, image_count> m_surfaces;
    bool m_reported = false;
};

}  // namespace velmora
