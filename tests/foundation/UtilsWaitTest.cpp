#include <chrono>
#include <ctime>
#include <gtest/gtest.h>
#include <thread>

#include "support/GlobalScope.h"

namespace {

TEST(UtilsWait, WaitForFlagLooksAfterOnePass) {
    TGlobalScope scope;
    std::uint8_t flag = 1;
    EXPECT_TRUE(scope.U().WaitForFlag(&flag, 1, 1000));
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 1);

    flag = 0;
    EXPECT_FALSE(scope.U().WaitForFlag(&flag, 1, 0));
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 2);
}

TEST(UtilsWait, AnEventPostedDuringTheWaitCanSetTheFlag) {
    TGlobalScope scope;
    std::uint8_t flag = 0;
    scope.App().Post([&] { flag = 7; });
    EXPECT_TRUE(scope.U().WaitForFlag(&flag, 7, 5000));
}

TEST(UtilsWait, TerminationEndsBothWaits) {
    TGlobalScope scope;
    std::uint8_t flag = 1;
    scope.App().Terminate();
    EXPECT_FALSE(scope.U().WaitForFlag(&flag, 1, 5000));
    scope.U().Delay(60000);
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 2);
}

TEST(UtilsWait, DelayRunsTheLoopAtLeastOnceAndWaitsItsTime) {
    TGlobalScope scope;
    scope.U().Delay(0);
    EXPECT_EQ(scope.App().ProcessMessagesCalls(), 1);
    const std::uint32_t start = scope.App().GetTickCount();
    scope.U().Delay(30);
    EXPECT_GE(scope.App().GetTickCount() - start, 30u);
}

// Both waits sleep on the event queue: a pause costs no processor time, and
// an event posted from another thread ends the sleep at once.
TEST(UtilsWait, WaitsSleepAndWakeForAPostedEvent) {
    TGlobalScope scope;
    const std::clock_t cpuBefore = std::clock();
    scope.U().Delay(300);
    EXPECT_LT(std::clock() - cpuBefore, CLOCKS_PER_SEC / 20) << "Delay spun the processor";

    std::uint8_t flag = 0;
    std::thread poster([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        scope.App().Post([&] { flag = 1; });
    });
    const std::uint32_t start = scope.App().GetTickCount();
    EXPECT_TRUE(scope.U().WaitForFlag(&flag, 1, 5000));
    EXPECT_LT(scope.App().GetTickCount() - start, 1000u);
    poster.join();
}

} // namespace
