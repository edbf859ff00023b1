#pragma once

#include <filesystem>
#include <optional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/recording_sink.h"
#include "tests/support/scratch_directory.h"
#include "tests/window/recording_screen.h"
#include "tests/window/scripted_dialogs.h"
#include "window/session/mode_controller.h"

namespace velmora {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// What the flows work on, in a directory of its own, with nobody in the referee's seat.
class FlowsTest : public testing::Test {
protected:
    FlowsTest() {
        std::filesystem::current_path(home.path(""));
        screen.on_switched = [this](Mode mode, bool on) { modes.on_switched(mode, on); };
        select(Mode::human_human);
    }
    ~FlowsTest() override { std::filesystem::current_path(m_before); }

    /// Selects a mode, and forgets what that brought about.
    void select(Mode mode) {
        screen.select_mode(mode);
        referee.take();
        screen.calls.clear();
    }

    const ScratchDirectory home;
    GameDesk desk;
    RecordingScreen screen;
    ScriptedDialogs dialogs;
    test::RecordingSink referee;
    ManagerLink link{referee};
    CommentKeeper comments{desk, screen};
    SeatedEngine engine{desk, screen, dialogs, link, [] { return std::optional<Protocol>(); }};
    ModeController modes{desk, screen, dialogs, comments, link, engine};

private:
    const std::filesystem::path m_before = std::filesystem::current_path();
};

}  // namespace velmora
