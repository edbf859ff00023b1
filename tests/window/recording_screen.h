#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/window/scripted_dialogs.h"
#include "window/session/screen.h"

namespace velmora {

/// A screen without a display: writes down what it is told to show, and answers what it is asked.
class RecordingScreen : public BoardView,
                        public ClockView,
                        public NotesView,
                        public WindowFrame,
                        public ScriptedDialogs {
public:
    std::vector<std::string> calls;
    std::string comment;  // the comment box
    std::string title;
    std::map<std::string, bool> sensitive;  // by the name of the action
    /// What the mode's radio actions bring about, as the real menu connects it.
    std::function<void(Mode, bool)> on_switched;
    /// Of what is shown whole, only that it is shown.
    std::function<void()> on_show_position = [] {};
    std::function<void()> on_show_game = [] {};

    Screen all() { return {*this, *this, *this, *this}; }

    void show_position() override { on_show_position(); }
    void show_targets(Square square) override { calls.push_back("targets " + square.name()); }
    void set_arrow(Square from, Square to, ArrowColor color) override {
        calls.push_back("arrow " + from.name() + " " + to.name() + " " +
                        std::to_string(static_cast<int>(color)));
    }
    void clear_arrows() override { calls.emplace_back("clear arrows"); }

    void reset_clocks(const Level& level) override { calls.push_back("reset clocks " + level.text()); }
    void stop_clocks() override { calls.emplace_back("stop clocks"); }
    void start_clock(Side side) override { calls.push_back("start clock" + name(side)); }
    void mark_clock(Side side) override { calls.push_back("mark clock" + name(side)); }

    BySide<ClockReading> clocks;
    BySide<ClockReading> read_clocks() const override { return clocks; }
    void restore_clocks(const BySide<ClockReading>& readings, std::optional<Side> running) override {
        clocks = readings;
        calls.push_back("restore clocks" + (running ? name(*running) : ""));
    }

    void show_game() override { on_show_game(); }
    void show_comment(const std::string& text) override { comment = text; }
    void add_analysis(Side side, const std::string& line) override {
        calls.push_back("analysis" + name(side) + line);
    }
    void clear_analysis() override { calls.emplace_back("clear analysis"); }

    void set_title(const std::string& text) override { title = text; }
    void close() override { calls.emplace_back("close"); }
    Mode mode() const override { return m_mode; }
    void select_mode(Mode mode) override {
        if (mode == m_mode) return;
        const Mode old = m_mode;
        m_mode = mode;
        if (!on_switched) return;
        on_switched(old, false);
        on_switched(mode, true);
    }
    void set_sensitive(Mode mode, bool on) override { sensitive[action_name(mode)] = on; }
    void set_sensitive(MenuEntry entry, bool on) override { sensitive[action_name(entry)] = on; }

    void tell_user(const std::string& headline, const std::string& details) override {
        calls.push_back("tell " + headline + "|" + details);
    }

private:
    static std::string name(Side side) { return side == Side::white ? " white" : " black"; }

    Mode m_mode = Mode::setup;
};

}  // namespace velmora
