#pragma once

#include <cstdint>

#include <gtkmm/button.h>
#include <gtkmm/checkbutton.h>
#include <gtkmm/comboboxtext.h>
#include <gtkmm/entry.h>
#include <gtkmm/spinbutton.h>

#include "engine/store/option.h"

/// The widgets that edit one engine option each: whatever the user does stands in the option at once, with
/// `changed` set. They start with the option's value and clear `changed`. The option must stay where it is
/// for as long as the widget lives.
namespace velmora {

/// One class for each type of the UCI protocol, "check", "spin", "combo", "button" and "string". They write
/// through a reference, so that the dialog needs no step in which everything is collected.
class OptionCheckButton : public Gtk::CheckButton {
public:
    explicit OptionCheckButton(Option& option);

private:
    void store();

    Option& m_option;
};

class OptionSpinButton : public Gtk::SpinButton {
public:
    /// Throws std::invalid_argument when min, max or value is no whole number of 64 bits.
    explicit OptionSpinButton(Option& option);

private:
    void store();

    Option& m_option;
    const std::int64_t m_min;
    const std::int64_t m_max;
};

class OptionComboBoxText : public Gtk::ComboBoxText {
public:
    explicit OptionComboBoxText(Option& option);

private:
    void store();

    Option& m_option;
};

/// Has no value: a click only sets `changed`.
class OptionButton : public Gtk::Button {
public:
    explicit OptionButton(Option& option);

private:
    void store();

    Option& m_option;
};

class OptionEntry : public Gtk::Entry {
public:
    explicit OptionEntry(Option& option);

private:
    void store();

    Option& m_option;
};

}  // namespace velmora
