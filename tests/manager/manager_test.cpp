#include "manager/manager.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "referee.h"

namespace velmora {
namespace {

using Lines = std::vector<std::string>;

TEST(ManagerLoop, AnswersQuitAndLeaves) {
    test::Referee referee;
    EXPECT_EQ(referee.quit(), Lines({"quit"}));
}

TEST(ManagerLoop, WhatItCannotReadIsDroppedSilently) {
    test::Referee referee;
    for (const auto* line :
         {"", " ", "3 move", "-1 quit", "noise", "0", "0 unknown", "0 Quit", "99999999999 quit"}) {
        referee.manager().put_command(line);
    }
    EXPECT_EQ(referee.quit(), Lines({"quit"}));
}

TEST(ManagerLoop, TheWordQuitElsewhereInALineEndsNothing) {
    test::Referee referee;
    referee.manager().put_command("1 7 info string quit");
    referee.say("mosquito quit");
    EXPECT_EQ(referee.quit(), Lines({"quit"}));
}

}  // namespace
}  // namespace velmora
