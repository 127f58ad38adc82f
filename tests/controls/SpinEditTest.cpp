#include <gtest/gtest.h>

#include "controls/Form.h"
#include "controls/SpinEdit.h"

namespace {

// The message size of a rule is written with three digits: the control must
// never hand out a value beyond its limits, whoever set it.
TEST(SpinEdit, KeepsItsValueWithinTheLimits) {
    struct Case {
        const char* typed;
        int value;
        const char* text;
    } cases[] = {
        {"60", 60, "60"},        {"0", 1, "0"},       {"-5", 1, "-5"},   {"201", 200, "201"},
        {"99999", 200, "99999"}, {"abc", 120, "abc"}, {" 7 ", 7, " 7 "}, {"0x10", 16, "0x10"},
    };
    TForm form("frmTest");
    TSpinEdit spin(&form, "LMDseMsgSize");
    spin.MinValue = 1;
    spin.MaxValue = 200;
    for (const Case& c : cases) {
        spin.SetValue(120);
        spin.UserType(c.typed);
        EXPECT_EQ(spin.Value(), c.value) << c.typed;
        EXPECT_EQ(spin.Text(), c.text) << c.typed;
    }
    for (auto [set, value] : {std::pair{0, 1}, {999, 200}, {150, 150}}) {
        spin.SetValue(set);
        EXPECT_EQ(spin.Value(), value);
        EXPECT_EQ(spin.Text(), std::to_string(value));
    }
}

} // namespace
