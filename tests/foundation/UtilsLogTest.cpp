#include <ctime>
#include <gtest/gtest.h>
#include <regex>

#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

std::int64_t LocalMoment(int year, int month, int day, int hour, int minute, int second) {
    std::tm t{};
    t.tm_year = year - 1900;
    t.tm_mon = month - 1;
    t.tm_mday = day;
    t.tm_hour = hour;
    t.tm_min = minute;
    t.tm_sec = second;
    t.tm_isdst = -1;
    return static_cast<std::int64_t>(std::mktime(&t));
}

TEST(UtilsLog, FormatDateTimeKnowsTheProgramsTwoFormats) {
    const std::int64_t moment = LocalMoment(2003, 3, 17, 14, 7, 9);
    EXPECT_EQ(TUtils::FormatDateTime("mm.dd.yyyyy hh.nn", moment), "03.17.2003 14.07");
    EXPECT_EQ(TUtils::FormatDateTime("mm.dd.yyyy.hh.nn.ss", moment), "03.17.2003.14.07.09");
    EXPECT_EQ(TUtils::FormatDateTime("hh:mm", moment), "14:07") << "mm after an hour is minutes";
}

class UtilsLogFile : public ::testing::Test {
protected:
    TTempFolder folder;
    TGlobalScope scope{AnsiString(folder / "vellumdesk")};
    std::string LogText() { return ReadFileBytes(folder / "Debug.txt"); }
};

TEST_F(UtilsLogFile, FirstLineCreatesTheLogBesideTheProgram) {
    EXPECT_EQ(scope.U().WriteLog("Filter file does not exist:%s", "/d/PriorityMail.ini"),
              "Filter file does not exist:/d/PriorityMail.ini");
    EXPECT_TRUE(std::regex_match(
        LogText(), std::regex(R"(\d\d\.\d\d\.\d{4}\.\d\d\.\d\d\.\d\d - Filter file does not )"
                              R"(exist:/d/PriorityMail\.ini\r\n)")))
        << LogText();
}

TEST_F(UtilsLogFile, LinesOfOneSecondKeepTheirOrderAndPercentSignsStay) {
    scope.U().WriteLog("%s", "first 100%");
    scope.U().WriteLog("%s", "second");
    const std::string log = LogText();
    EXPECT_LT(log.find("first 100%\r\n"), log.find("second\r\n"));
}

TEST_F(UtilsLogFile, RotatesAboveTheLimitOnly) {
    folder.Write("Debug.bak", "older backup");
    folder.Write("Debug.txt", std::string(65536, 'x'));
    scope.U().WriteLog("%s", "at the limit");
    EXPECT_EQ(ReadFileBytes(folder / "Debug.bak"), "older backup");

    folder.Write("Debug.txt", std::string(65537, 'x'));
    scope.U().WriteLog("%s", "above");
    EXPECT_EQ(ReadFileBytes(folder / "Debug.bak").size(), 65537u);
    EXPECT_NE(LogText().find(" - above\r\n"), std::string::npos);
    EXPECT_EQ(LogText().find('x'), std::string::npos) << "the new log holds the new line alone";
}

TEST_F(UtilsLogFile, LongMessagesAreCutAndAnUnwritableLogLosesOnlyTheLine) {
    const AnsiString message = scope.U().WriteLog("%s", std::string(2000, 'm').c_str());
    EXPECT_EQ(message.Length(), 511);
    scope.U().LogPath = AnsiString(folder / "no/such/Debug.txt");
    EXPECT_EQ(scope.U().WriteLog("%d", 7), "7");
}

} // namespace
