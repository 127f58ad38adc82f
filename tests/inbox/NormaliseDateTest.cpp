#include <gtest/gtest.h>

#include "foundation/Utils.h"

namespace {

TEST(NormaliseDate, WorkedExamples) {
    for (const auto& [value, expected] : std::initializer_list<std::pair<const char*, const char*>>{
             {"Mon, 3 Mar 2003 12:34:56 +0100", "03.03.2003 12.34.56+0100"},
             {"Mon, 03 Mar 2003 12:34:56 -0500 (EST)", "03.03.2003 12.34.56-0500"},
             {"Thu, 13 Feb 2003 21:17:04 GMT", "02.13.2003 21.17.04 "},
             {"Mon, 3 Mar 2003 9:05:00 +0100", "03.03.2003  9.05.00+0100"},
             {"3 Mar 03 12:34:56 -0500", "03.56.0000 12.34.56-0500"},
             {"3 Mar 03 12:34:56 -0500 (EST)", "03.56.0500 12.34.56-0500"},
             {"Tue, 1 Apr 2003 08:00 +0200", "04.01.2003 08.00.+0+0200"},
             {"03/12/2003 10:11:12", "13.12.2003 10.11.12 "},
             {"2003-03-12 10:11:12", "13.00.2003 10.11.12-03-1"},
             {"Mon, 3 Mar 2003", "03.03.0000  "},
             {"Wed, 7 Dec 2002 10:00:00 +0100 (see march)", "03.07.2002 10.00.00+0100"},
             {"NA", "13.00.0000  "},
             {"", "13.00.0000  "},
             {"no digits here", "13.00.0000  "},
             {"12:34", "13.12.0000  "},
             {"3-Mar-2003 10:11:12 +0100", "03.03.2003 10.11.12-Mar-"},
             {"Mon, 3 Mar 2003 10:11:12 +0100 (a/b)", "03.03.2003 10.11.12+0100"},
             // A time that ends two bytes behind its colon keeps its first dot only.
             {"Mon, 3 Mar 2003 12:34", "03.03.2003 12.34 "},
             {"Mon, 3 Mar 2003 12:3", "03.03.2003 12.3 "}})
        EXPECT_EQ(TUtils::NormaliseDate(value), expected) << value;
}

} // namespace
