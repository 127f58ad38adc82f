#include <gtest/gtest.h>
#include <sys/stat.h>

#include "foundation/Utils.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

TEST(UtilsPaths, PathTexts) {
    const TUtils u;
    EXPECT_EQ(u.StripLeadingBackslash("\\a\\b"), "a\\b");
    EXPECT_EQ(u.StripLeadingBackslash("\\a"), "\\a");
    EXPECT_EQ(u.StripLeadingBackslash("\\\\a"), "\\\\a");
    EXPECT_EQ(u.StripLeadingBackslash("/a/b"), "a/b");
    EXPECT_EQ(u.MakeExtension("eml"), ".eml");
    EXPECT_EQ(u.MakeExtension(".eml"), ".eml");
    EXPECT_EQ(u.MakeExtension(""), "");
    EXPECT_EQ(u.BuildPath("/d", "Config", "cfg"), "/d/Config.cfg");
    EXPECT_EQ(u.CutAtLast(".bak", "."), "");
    EXPECT_EQ(u.ParentPath(".bak", "."), ".bak");
    EXPECT_EQ(u.ParentPath("C:\\x\\y\\", "\\"), "C:\\x\\y");
    EXPECT_EQ(u.ParentPath(u.ParentPath("C:\\x\\y\\", "\\"), "\\"), "C:\\x");
    EXPECT_EQ(u.RemoveExtension("a.b.c"), "a.b");
}

TEST(UtilsPaths, ExpandProgramFiles) {
    const TUtils u;
    for (const auto& [in, out] : std::initializer_list<std::pair<const char*, const char*>>{
             {"%ProgramFiles%\\Mail\\mail.exe", "C:\\Program Files\\Mail\\mail.exe"},
             {"%PROGRAMFILES%\\x", "C:\\Program Files\\x"},
             {"%windir%\\x", "\\x"},
             {"%x", "x"},
             {"/usr/bin/mailer", "/usr/bin/mailer"}})
        EXPECT_EQ(u.ExpandProgramFiles(in), out) << in;
}

struct SplitCase {
    const char *path, *server, *drive, *dir, *name, *ext;
};

TEST(UtilsPaths, SplitPathOfNetworkAndPlainPaths) {
    const TUtils u;
    for (const SplitCase& c : std::initializer_list<SplitCase>{
             {"\\\\srv\\share\\d\\f.txt", "srv", "\\\\srv\\share", "\\d\\", "f", ".txt"},
             {"\\\\srv\\share", "srv", "\\\\srv\\share", "\\", "old", ".old"},
             {"C:\\a\\b.txt", "", "C:", "\\a\\", "b", ".txt"},
             {"/home/u/Debug.txt", "", "", "/home/u/", "Debug", ".txt"},
             {"noext", "", "", "", "noext", ""}}) {
        AnsiString drive, dir, name = "old", ext = ".old";
        EXPECT_EQ(u.SplitPath(c.path, drive, dir, name, ext), c.server) << c.path;
        EXPECT_EQ(drive, c.drive) << c.path;
        EXPECT_EQ(dir, c.dir) << c.path;
        EXPECT_EQ(name, c.name) << c.path;
        EXPECT_EQ(ext, c.ext) << c.path;
    }
}

TEST(UtilsPaths, RenameExtensionReplacesAnOlderTarget) {
    for (const char* ext : {"bak", ".bak"}) {
        TTempFolder folder;
        const std::string source = folder.Write("Debug.txt", "new");
        folder.Write("Debug.bak", "old");
        TUtils u;
        EXPECT_EQ(u.RenameExtension(source, ext), AnsiString(folder / "Debug.bak")) << ext;
        EXPECT_EQ(ReadFileBytes(folder / "Debug.bak"), "new");
        EXPECT_FALSE(PathExists(source));
        EXPECT_EQ(u.LastError, 0u);
    }
}

TEST(UtilsPaths, RenameExtensionOverATargetThatCannotGoLeavesBoth) {
    TTempFolder folder;
    const std::string source = folder.Write("Debug.txt", "new");
    folder.Write("Debug.bak/keep", "a folder that is not empty cannot be deleted");
    TUtils u;
    EXPECT_EQ(u.RenameExtension(source, "bak"), "");
    EXPECT_NE(u.LastError, 0u);
    EXPECT_EQ(ReadFileBytes(source), "new");
    EXPECT_TRUE(PathExists(folder / "Debug.bak/keep"));
}

TEST(UtilsPaths, ShortPathIsTheFullPathOfAnExistingFile) {
    TTempFolder folder;
    const std::string file = folder.Write("a b.eml", "x");
    TUtils u;
    EXPECT_EQ(u.ShortPath(file), AnsiString(file));
    EXPECT_EQ(u.ShortPath(folder / "missing.eml"), "");
}

TEST(UtilsPaths, SpecialFoldersFollowTheXdgVariables) {
    TTempFolder folder;
    folder.Write("config/user-dirs.dirs", "# written by us\nXDG_DOCUMENTS_DIR=\"$HOME/Papers\"\n");
    TEnvOverride env;
    env.Set("XDG_DATA_HOME", (folder / "data").c_str());
    env.Set("XDG_CONFIG_HOME", (folder / "config").c_str());
    env.Set("HOME", "/home/tester");
    const TUtils u;
    EXPECT_EQ(u.GetSpecialFolder(26), AnsiString(folder / "data"));
    EXPECT_EQ(u.GetSpecialFolder(5), "/home/tester/Papers");
    EXPECT_EQ(u.GetSpecialFolder(99), "");
    env.Set("XDG_DATA_HOME", nullptr);
    EXPECT_EQ(u.GetSpecialFolder(26), "/home/tester/.local/share");
}

TEST(UtilsPaths, MakeFolderCreatesOneLevel) {
    TTempFolder folder;
    const TUtils u;
    u.MakeFolder(AnsiString(folder / "one") + "/");
    u.MakeFolder(folder / "two/three");
    EXPECT_TRUE(PathExists(folder / "one"));
    EXPECT_FALSE(PathExists(folder / "two"));
    EXPECT_FALSE(u.GetLoginName().IsEmpty());
}

} // namespace
