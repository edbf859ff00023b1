#pragma once

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/scratch_directory.h"
#include "tests/window/headless_window.h"

namespace velmora {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A window without a display in a directory of its own, with nobody in the referee's seat.
class FlowsTest : public testing::Test, protected test::HeadlessWindow {
protected:
    FlowsTest() : HeadlessWindow(Mode::human_human) { std::filesystem::current_path(home.path("")); }
    ~FlowsTest() override { std::filesystem::current_path(m_before); }

    /// Selects a mode, and forgets what that brought about.
    void select(Mode mode) {
        screen.select_mode(mode);
        referee.take();
        screen.calls.clear();
    }

    const ScratchDirectory home;
    ScriptedDialogs dialogs;

private:
    const std::filesystem::path m_before = std::filesystem::current_path();
};

}  // namespace velmora
