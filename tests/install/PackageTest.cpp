#include <filesystem>
#include <gtest/gtest.h>

#include "install/InstalledTree.h"

namespace {

std::string FindDeb(const std::string& folder) {
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".deb") return entry.path().string();
    return {};
}

// CPack makes the package into a folder of the test's own; it is unpacked
// into a scratch root and the programs run from there.
TEST(Package, TheDebianPackageDeclaresItsDependenciesAndRunsUnpacked) {
    TTempFolder out;
    const TChildResult made =
        RunChild({VD_CPACK, "--config", VD_BINARY_DIR "/CPackConfig.cmake", "-B", out.Path()});
    ASSERT_EQ(made.exitCode, 0) << made.out << made.err;
    const std::string deb = FindDeb(out.Path());
    ASSERT_FALSE(deb.empty()) << made.out;

    const std::string depends = RunTool({"dpkg-deb", "--field", deb, "Depends"}).out;
    std::vector<std::string> libraries = {"libc6", "libstdc++6", "libglib2.0-0"};
    if (VD_GUI) libraries.push_back("libqt6widgets6");
    for (const std::string& library : libraries)
        EXPECT_NE(depends.find(library), std::string::npos) << depends;

    const std::string root = out / "root";
    ASSERT_EQ(RunTool({"dpkg-deb", "-x", deb, root}).exitCode, 0);
    const struct {
        std::string program, option, answer;
    } cases[] = {
        {"usr/bin/vellumdesk-cli", "--version", "vellumdesk-cli "},
        {"usr/bin/vellumdesk-cli", "--help", "usage: vellumdesk-cli COMMAND"},
        {"usr/bin/vellumdesk", "--version", "vellumdesk "},
    };
    for (const auto& c : cases) {
        if (c.program.ends_with("/vellumdesk") && !VD_GUI) continue;
        const TChildResult r = RunChild({root + "/" + c.program, c.option});
        EXPECT_EQ(r.exitCode, 0) << c.program << r.err;
        EXPECT_EQ(r.out.rfind(c.answer, 0), 0u) << r.out;
    }
    for (const char* file :
         {"usr/share/vellumdesk/Help/QUILLPOST.HLP", "usr/share/applications/vellumdesk.desktop",
          "usr/share/man/man1/vellumdesk-cli.1"})
        EXPECT_TRUE(PathExists(root + "/" + file)) << file;
}

} // namespace
