// The script's Bluetooth words against the phone's state. (What each headset
// key does, also when the player was started by one, is the Bluetooth
// client's test; the launch itself is the launch scenario's.)

#include <gtest/gtest.h>

#include "tests/scenarios/ScenarioRun.h"

namespace {

TEST(BluetoothScenarioTest, LinkWhileBluetoothIsOff_StopsTheScript)
{
    ScenarioRun scenario;
    EXPECT_EQ(scenario.runText("bt link stereo\n"), 2);
    EXPECT_TRUE(scenario.errorOutput().contains("text.mps:1: bt: no headset link while Bluetooth is off"))
        << qPrintable(scenario.errorOutput());
}

} // namespace
