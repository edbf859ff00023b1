#include "dialogs/engine/option_widgets.h"

#include <stdexcept>
#include <string>

#include "engine/store/option_lists.h"
#include "views/text/shown_text.h"

namespace velmora {

// Each constructor connects its signal last: setting the start value, which a spin button also fits into its
// range, is no change.

namespace {

constexpr std::size_t longest_name = 80;       // bytes, on a button
constexpr std::size_t longest_value = 50'000;  // bytes: what an entry holds

std::int64_t spin_number(const Option& option, const std::string& text) {
    const auto number = option_lists::spin_number(text);
    if (!number) {
        throw std::invalid_argument("OptionSpinButton: \"" + text + "\" of \"" + option.name +
                                    "\" is no number");
    }
    return *number;
}

}  // namespace

OptionCheckButton::OptionCheckButton(Option& option)
    : Gtk::CheckButton(shown_text(option.name, longest_name)), m_option(option) {
    m_option.changed = false;
    set_active(m_option.value == "true");
    signal_toggled().connect(sigc::mem_fun(*this, &OptionCheckButton::store));
}

void OptionCheckButton::store() {
    m_option.changed = true;
    m_option.value = get_active() ? "true" : "false";
}

OptionSpinButton::OptionSpinButton(Option& option)
    : m_option(option), m_min(spin_number(option, option.min)), m_max(spin_number(option, option.max)) {
    const std::int64_t value = spin_number(option, option.value);
    m_option.changed = false;
    set_numeric(true);
    set_range(static_cast<double>(m_min), static_cast<double>(m_max));
    set_increments(1, 50);
    set_value(static_cast<double>(value));
    set_activates_default(true);
    signal_value_changed().connect(sigc::mem_fun(*this, &OptionSpinButton::store));
}

void OptionSpinButton::store() {
    m_option.changed = true;
    // The toolkit counts in doubles, of which the largest ones lie outside the whole numbers of 64 bits.
    const double value = std::nearbyint(get_value());
    std::int64_t number = 0;
    if (value <= static_cast<double>(m_min)) {
        number = m_min;
    } else if (value >= static_cast<double>(m_max)) {
        number = m_max;
    } else {
        number = static_cast<std::int64_t>(value);
    }
    m_option.value = std::to_string(number);
}

OptionComboBoxText::OptionComboBoxText(Option& option) : m_option(option) {
    m_option.changed = false;
    for (const auto& choice : m_option.vars) {
        append(shown_text(choice, longest_name));
        if (choice == m_option.value) set_active(static_cast<int>(&choice - m_option.vars.data()));
    }
    signal_changed().connect(sigc::mem_fun(*this, &OptionComboBoxText::store));
}

void OptionComboBoxText::store() {
    m_option.changed = true;
    // From the list: the text that is shown may have had bytes replaced.
    const int row = get_active_row_number();
    if (row >= 0) m_option.value = m_option.vars.at(static_cast<std::size_t>(row));
}

OptionButton::OptionButton(Option& option)
    : Gtk::Button(shown_text(option.name, longest_name)), m_option(option) {
    m_option.changed = false;
    signal_clicked().connect(sigc::mem_fun(*this, &OptionButton::store));
}

void OptionButton::store() { m_option.changed = true; }

OptionEntry::OptionEntry(Option& option) : m_option(option) {
    m_option.changed = false;
    set_text(shown_text(m_option.value, longest_value));
    set_activates_default(true);
    signal_changed().connect(sigc::mem_fun(*this, &OptionEntry::store));
}

void OptionEntry::store() {
    m_option.changed = true;
    m_option.value = get_text().raw();
}

}  // namespace velmora
