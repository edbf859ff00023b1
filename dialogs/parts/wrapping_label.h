#pragma once

#include <algorithm>

#include <gtkmm/label.h>

namespace velmora {

/// Breaks the text of a label into lines where it has more characters than `most_chars` or where the grid has
/// no room for it; the full text comes up under the pointer.
/// For names that an engine has chosen, which may have any length and no blank in them.
inline void wrap(Gtk::Label& label, int most_chars) {
    constexpr int least_chars = 8;
    constexpr int most_lines = 4;
    label.set_line_wrap();
    label.set_line_wrap_mode(Pango::WRAP_WORD_CHAR);
    // Hyphens, which the toolkit would put in, are no part of a name.
    Pango::AttrList attributes;
    pango_attr_list_insert(attributes.gobj(), pango_attr_insert_hyphens_new(FALSE));
    label.set_attributes(attributes);
    label.set_xalign(0);
    label.set_width_chars(std::min(least_chars, static_cast<int>(label.get_text().size())));
    label.set_max_width_chars(most_chars);
    label.set_lines(most_lines);
    label.set_ellipsize(Pango::ELLIPSIZE_END);
    label.set_tooltip_text(label.get_text());
}

}  // namespace velmora
