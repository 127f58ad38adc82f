#include <gtest/gtest.h>

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

} // namespace
