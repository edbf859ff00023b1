#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <glibmm/ustring.h>

namespace velmora {

/// Text from engines and files in the form that widgets take: valid UTF-8, no zero bytes, and at most
/// `longest` bytes, with an ellipsis where something was cut.
/// The toolkit's setters end at a zero byte and complain about broken UTF-8, both of which files and
/// engines bring; and a label lays out all of its text however little of it can be seen.
std::string shown_bytes(std::string_view text, std::size_t longest = 1000);

/// The `longest` for one cell of a list.
constexpr std::size_t longest_cell = 200;

/// The same for a widget's setter.
Glib::ustring shown_text(std::string_view text, std::size_t longest = 1000);

}  // namespace velmora
