#include <gtest/gtest.h>

#include "foundation/Utils.h"
#include "support/TempFolder.h"

namespace {

TEST(UtilsFolders, BackslashRulesAcceptBothSeparators) {
    const TUtils u;
    struct Case {
        const char *in, *added, *removed;
    };
    for (const Case& c : std::initializer_list<Case>{{"", "", ""},
                                                     {"/a", "/a/", "/a"},
                                                     {"/a/", "/a/", "/a"},
                                                     {"C:\\x\\", "C:\\x\\", "C:\\x"},
                                                     {"a\\\\", "a\\\\", "a\\"}}) {
        EXPECT_EQ(u.AddBackslash(c.in), c.added) << c.in;
        EXPECT_EQ(u.RemoveBackslash(c.in), c.removed) << c.in;
    }
    EXPECT_EQ(u.StripQuotes("\"a b\" \"c"), "a b c");
}

TEST(UtilsFolders, FileStemLooksForTheDotFirst) {
    const TUtils u;
    for (const auto& [path, stem] : std::initializer_list<std::pair<const char*, const char*>>{
             {"C:\\a.b\\c", "a"},
             {"C:\\mail\\box", "box"},
             {"report.tar.gz", "report.tar"},
             {"/usr/lib/vellumdesk/vellumdesk", "vellumdesk"},
             {"/opt/x/prog.exe", "prog"}})
        EXPECT_EQ(u.FileStem(path), stem) << path;
}

TEST(UtilsFolders, SearchFilesListsNonEmptyFilesWithTheExactExtension) {
    TTempFolder folder;
    folder.Write("a.eml", "");
    folder.Write("b.eml", "0123456789");
    folder.Write("MSG.EML", "x");
    folder.Write("c.emlx", "x");
    folder.Write("a.b.eml", "x");
    folder.Write(".hidden.eml", "x");
    folder.MakeFolder("sub.eml");
    TUtils u;
    TStringList names;
    names.SetSorted(true);
    EXPECT_TRUE(u.SearchFiles(AnsiString(folder.Path()) + "/*.eml", faAnyFile, names, false));
    std::vector<std::string> listed(names.begin(), names.end());
    EXPECT_EQ(listed, (std::vector<std::string>{".hidden.eml", "a.b.eml", "b.eml"}));

    TStringList plain;
    u.SearchFiles(AnsiString(folder.Path()) + "/*.eml", faArchive, plain, false);
    EXPECT_EQ(plain.Count(), 2) << "without the hidden bit a dot-file is not listed";
    u.SearchFiles(AnsiString(folder.Path()) + "/*.eml", faArchive, plain, false);
    EXPECT_EQ(plain.Count(), 4) << "a second search adds the names again";
}

TEST(UtilsFolders, SearchFilesOnEmptyOrMissingFoldersLeavesTheListAlone) {
    TTempFolder folder;
    folder.Write("empty.eml", "");
    TUtils u;
    TStringList names;
    names.Add("kept");
    EXPECT_FALSE(u.SearchFiles(AnsiString(folder.Path()) + "/*.eml", faAnyFile, names, false));
    EXPECT_FALSE(u.SearchFiles(AnsiString(folder.Path()) + "/none/*.eml", faAnyFile, names, false));
    EXPECT_EQ(names.Count(), 1);
}

TEST(UtilsFolders, FileAndFolderTestsFollowTheAttributeMasks) {
    TTempFolder folder;
    const AnsiString file = folder.Write("f.txt", "12345");
    const AnsiString hidden = folder.Write(".h", "1");
    const AnsiString sub = folder.MakeFolder("sub");
    TUtils u;
    EXPECT_TRUE(u.FileExists(file));
    EXPECT_TRUE(u.FileExists(hidden));
    EXPECT_FALSE(u.FileExists(sub));
    EXPECT_TRUE(u.FolderExists(sub + "/"));
    EXPECT_TRUE(u.FolderExists(file)) << "a plain file passes the folder test";
    EXPECT_FALSE(u.FolderExists(hidden));
    EXPECT_EQ(u.GetFileSize(file), 5u);
    EXPECT_EQ(u.GetFileSize(sub), 0u);
    EXPECT_EQ(u.GetFileSize(AnsiString(folder.Path()) + "/missing"), 0u);
    EXPECT_TRUE(u.FindEntry(AnsiString(folder.Path()) + "/*.txt", faArchive));
    EXPECT_EQ(u.SearchRec.Name, "f.txt");
}

} // namespace
