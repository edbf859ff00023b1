#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/window/scripted_dialogs.h"
#include "window/session/screen.h"

namespace velmora {

/// A screen without a display: writes down what it is told to show, and answers what it is asked.
class RecordingScreen : public Screen, public ScriptedDialogs {
public:
    std::vector<std::string> calls;
    std::string comment;  // the comment box
    /// What the mode's radio actions bring about, as the real menu connects it.
    std::function<void(Mode, bool)> on_switched;

    void show_position() override {}
    void show_targets(int square) override { calls.push_back("targets " + std::to_string(square)); }
    void show_game() override {}
    void set_title(const std::string& text) override { title = text; }
    std::string title;
    void tell_user(const std::string& headline, const std::string& details) override {
        calls.push_back("tell " + headline + "|" + details);
    }
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
    void set_sensitive(const char* action, bool on) override { sensitive[action] = on; }
    std::map<std::string, bool> sensitive;

    void set_arrow(int from, int to, int color) override {
        calls.push_back("arrow " + std::to_string(from) + " " + std::to_string(to) + " " +
                        std::to_string(color));
    }
    void clear_arrows() override { calls.emplace_back("clear arrows"); }

    void set_clock_level(const Level& level) override { calls.push_back("clock level " + level.text()); }
    void reset_clocks() override { calls.emplace_back("reset clocks"); }
    void stop_clocks() override { calls.emplace_back("stop clocks"); }
    void start_clock(Side side) override { calls.push_back("start clock" + name(side)); }
    void set_clock(Side side, int centiseconds) override {
        calls.push_back("set clock" + name(side) + " " + std::to_string(centiseconds));
    }
    void mark_clock(Side side) override { calls.push_back("mark clock" + name(side)); }

    void add_analysis(Side side, const std::string& line) override {
        calls.push_back("analysis" + name(side) + line);
    }
    void clear_analysis() override { calls.emplace_back("clear analysis"); }

    std::string comment_text() const override { return comment; }
    void show_comment(const std::string& text) override { comment = text; }

private:
    static std::string name(Side side) { return side == Side::white ? " white" : " black"; }

    Mode m_mode = Mode::setup;
};

}  // namespace velmora
