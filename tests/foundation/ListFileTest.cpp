#include <gtest/gtest.h>
#include <sys/stat.h>

#include "foundation/ListFile.h"
#include "support/TempFolder.h"

namespace {

// What a writer may load before it writes the list back: all of the file,
// nothing (no file), or a refusal that leaves the file as it is.
TEST(LoadExistingListFile, LoadsAllOrRefusesWhatItCouldNotWriteBack) {
    TTempFolder folder;
    struct Case {
        const char* name;
        std::string bytes;
        int count; // -1: refused
    } cases[] = {
        {"plain.ini", "a=1\r\nb=2", 2},
        {"empty.ini", "", 0},
        {"nul-inside.ini", std::string("a=1\r\nb\0=2\r\nc=3\r\n", 15), -1},
        {"nul-last.ini", std::string("a=1\r\n\0", 6), -1},
    };
    for (const Case& c : cases) {
        const std::string path = folder.Write(c.name, c.bytes);
        TStringList list;
        list.Add("untouched");
        if (c.count < 0) {
            EXPECT_THROW(LoadExistingListFile(list, AnsiString(path)), EFOpenError) << c.name;
            EXPECT_EQ(list.Count(), 1) << c.name;
        } else {
            EXPECT_TRUE(LoadExistingListFile(list, AnsiString(path))) << c.name;
            EXPECT_EQ(list.Count(), c.count) << c.name;
        }
    }
    TStringList list;
    EXPECT_FALSE(LoadExistingListFile(list, AnsiString(folder / "missing.ini")));
    ASSERT_EQ(::mkdir((folder / "folder.ini").c_str(), 0700), 0);
    EXPECT_THROW(LoadExistingListFile(list, AnsiString(folder / "folder.ini")), EFOpenError);
}

} // namespace
