#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtkmm/box.h>
#include <gtkmm/expander.h>
#include <gtkmm/label.h>
#include <gtkmm/scrolledwindow.h>

namespace velmora {

/// A part of the side panel: a title that folds it by pointer or keyboard, and below it what it shows, or,
/// while there is nothing to show, the sentence that says what would bring it.
class PanelSection : public Gtk::Expander {
public:
    PanelSection(const std::string& title, Gtk::Widget& content, const std::string& hint);

    /// Shows the content, or the hint in its place.
    void set_has_content(bool has);

private:
    Gtk::Box m_box;
    Gtk::Label m_hint;
    Gtk::Widget& m_content;
};

/// The panel at the right of the board: sections one below the other, of which one takes the height that the
/// others leave.
///
/// It scrolls as a whole, so that a large font makes the panel longer and not the window higher.
class SidePanel : public Gtk::ScrolledWindow {
public:
    SidePanel();

    /// Adds what stands above the sections.
    void add_head(Gtk::Widget& head);

    /// Adds a section at the lower end; it has no content yet. With `takes_rest` it grows with the window as
    /// long as it is unfolded.
    PanelSection& add_section(const std::string& title, Gtk::Widget& content, const std::string& hint,
                              bool takes_rest = false);

protected:
    void get_preferred_width_vfunc(int& minimum, int& natural) const override;

private:
    Gtk::Box m_sections;
    std::vector<std::unique_ptr<PanelSection>> m_owned;
};

}  // namespace velmora
