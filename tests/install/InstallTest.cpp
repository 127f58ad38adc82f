#include <gtest/gtest.h>

#include "cli/CliUsage.h"
#include "install/InstalledTree.h"
#include "support/EnvOverride.h"

namespace {

class Installed : public ::testing::Test {
protected:
    TInstalledTree tree;
    void SetUp() override { ASSERT_TRUE(tree.Installed()) << tree.Log(); }
};

// A PNG's width and height stand big-endian at bytes 16 and 20.
int PngSide(const std::string& bytes) {
    if (bytes.size() < 24 || bytes.compare(0, 8, "\x89PNG\r\n\x1a\n") != 0) return -1;
    auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const int width = at(16) << 24 | at(17) << 16 | at(18) << 8 | at(19);
    const int height = at(20) << 24 | at(21) << 16 | at(22) << 8 | at(23);
    return width == height ? width : -1;
}

TEST_F(Installed, EveryFileLiesInItsUsualFolder) {
    std::vector<std::string> files = {
        "bin/vellumdesk-cli",
        "share/vellumdesk/Help/QUILLPOST.HLP",
        "share/applications/vellumdesk.desktop",
        "share/metainfo/org.quillpost.Vellumdesk.metainfo.xml",
        "share/icons/hicolor/scalable/apps/vellumdesk.svg",
        "share/man/man1/vellumdesk.1",
        "share/man/man1/vellumdesk-cli.1",
        "share/bash-completion/completions/vellumdesk-cli",
        "share/bash-completion/completions/vellumdesk",
        "share/doc/vellumdesk/README.md",
        "share/doc/vellumdesk/ARCHITECTURE.md",
    };
    if (VD_GUI) files.push_back("bin/vellumdesk");
    for (const std::string& file : files)
        EXPECT_TRUE(PathExists(tree / file)) << file;
    for (const int size : iconSizes) {
        const std::string name = "share/icons/hicolor/" + std::to_string(size) + "x" +
                                 std::to_string(size) + "/apps/vellumdesk.png";
        EXPECT_EQ(PngSide(ReadFileBytes(tree / name)), size) << name;
    }
}

TEST_F(Installed, TheDesktopToolsAcceptTheEntryAndTheMetadata) {
    const std::vector<std::string> checks[] = {
        {"desktop-file-validate", tree / "share/applications/vellumdesk.desktop"},
        {"appstreamcli", "validate", "--no-net", "--strict",
         tree / "share/metainfo/org.quillpost.Vellumdesk.metainfo.xml"},
    };
    for (const std::vector<std::string>& check : checks) {
        const TChildResult r = RunTool(check);
        EXPECT_EQ(r.exitCode, 0) << check[0] << "\n" << r.out << r.err;
    }
}

struct TProgramCase {
    std::vector<std::string> args;
    int exitCode;
    std::string out, err; // texts that must appear
};

TEST_F(Installed, TheInstalledProgramsAnswerTheirOptions) {
    std::vector<TProgramCase> cases = {
        {{"bin/vellumdesk-cli", "--version"}, 0, "vellumdesk-cli ", ""},
        {{"bin/vellumdesk-cli", "help", "open"}, 0, "--client NAME", ""},
        {{"bin/vellumdesk-cli", "--nonsense"}, 2, "", "unknown option '--nonsense'"},
    };
    if (VD_GUI) {
        cases.push_back({{"bin/vellumdesk", "--version"}, 0, "vellumdesk ", ""});
        cases.push_back({{"bin/vellumdesk", "--help"}, 0, "--version", ""});
        cases.push_back({{"bin/vellumdesk", "-h"}, 0, "vellumdesk.ini", ""});
        cases.push_back({{"bin/vellumdesk", "--nonsense"}, 2, "", "Unknown option 'nonsense'"});
    }
    for (TProgramCase& c : cases) {
        c.args[0] = tree / c.args[0];
        const TChildResult r = RunChild(c.args);
        EXPECT_EQ(r.exitCode, c.exitCode) << c.args[0] << " " << c.args[1] << "\n" << r.err;
        EXPECT_NE(r.out.find(c.out), std::string::npos) << c.args[1] << ":\n" << r.out;
        EXPECT_NE(r.err.find(c.err), std::string::npos) << c.args[1] << ":\n" << r.err;
        if (c.out.empty()) {
            EXPECT_EQ(r.out, "") << c.args[1];
        }
        if (c.err.empty()) {
            EXPECT_EQ(r.err, "") << c.args[1];
        }
    }
}

// The desktop program beside the installed vellumdesk-cli finds the help
// texts under the prefix: its help popups show them.
TEST_F(Installed, TheInstalledSessionShowsTheHelpTextsFromThePrefix) {
    TTempFolder home;
    const std::string box = home.Write("Quillpost Users/Inbox/a.eml", "From: Ann\r\n\r\nx\r\n");
    TEnvOverride env;
    env.Set("XDG_DATA_HOME", home.Path().c_str());
    const std::string script = "handoff \"" + home / "Quillpost Users/Inbox" +
                               "\"\nstart\nhelp InboxFrm.LMDpfRefresh\n"
                               "click InboxFrm.LMDpfRefresh\n";
    const TChildResult r = RunChild({tree / "bin/vellumdesk-cli", "script", "-"}, script);
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("dialog\thelp\t\tRefresh: "), std::string::npos) << r.out << r.err;
}

// The Help buttons of an installed program find the help viewer's manifest
// beside the program's folder, and the viewer it names is installed.
TEST_F(Installed, TheInstalledProgramFindsItsHelpExtension) {
    if (!VD_GUI) GTEST_SKIP() << "no help viewer without the Qt programs";
    TTempFolder home;
    TEnvOverride env;
    env.Set("XDG_DATA_HOME", home.Path().c_str());
    const TChildResult r = RunChild({tree / "bin/vellumdesk-cli", "plugins"}, "");
    EXPECT_EQ(r.exitCode, 0) << r.err;
    EXPECT_NE(r.out.find("ExtensionIds\tSystemHelp=Vellumdesk Manual"), std::string::npos)
        << r.out << r.err;
    EXPECT_TRUE(PathExists(tree / "bin/vellumdesk-help"));
}

// The pages render without a warning and tell every command and option.
TEST_F(Installed, TheManualPagesRenderAndNameEveryCommand) {
    TEnvOverride env;
    env.Set("MANWIDTH", "200");
    std::string cli;
    for (const char* page : {"vellumdesk.1", "vellumdesk-cli.1"}) {
        const std::string file = tree / ("share/man/man1/" + std::string(page));
        const TChildResult lint = RunTool({"groff", "-man", "-ww", "-z", file});
        EXPECT_EQ(lint.exitCode, 0) << page;
        EXPECT_EQ(lint.err, "") << page;
        const TChildResult shown = RunTool({"man", "-l", "-P", "cat", "-E", "ascii", file});
        EXPECT_EQ(shown.exitCode, 0) << page << shown.err;
        EXPECT_NE(shown.out.find("\nSYNOPSIS\n"), std::string::npos) << page << shown.out;
        cli = shown.out;
    }
    for (const TCliUsage& usage : CliUsageTable::commands) {
        const std::string name = "\n       " + std::string(usage.Name);
        EXPECT_TRUE(cli.find(name + " ") != std::string::npos ||
                    cli.find(name + "\n") != std::string::npos)
            << usage.Name;
        for (const TCliOption& option : usage.Options)
            EXPECT_NE(cli.find(std::string(option.Name)), std::string::npos) << option.Name;
    }
}

// What bash offers after the words typed so far (the last one may be empty).
std::string Complete(const std::string& completion, const std::vector<std::string>& words) {
    std::string array;
    for (const std::string& word : words)
        array += " '" + word + "'";
    const std::string program = "source /usr/share/bash-completion/bash_completion\n"
                                "source '" +
                                completion +
                                "'\n"
                                "COMP_WORDS=(" +
                                array +
                                ")\n"
                                "COMP_CWORD=$((${#COMP_WORDS[@]} - 1))\n"
                                "COMP_LINE=\"${COMP_WORDS[*]}\"\nCOMP_POINT=${#COMP_LINE}\n"
                                "_vellumdesk_cli\nprintf '%s\\n' \"${COMPREPLY[@]}\"\n";
    return RunTool({"bash", "-c", program}).out;
}

TEST_F(Installed, BashCompletesCommandsOptionsAndValues) {
    if (!PathExists("/usr/share/bash-completion/bash_completion"))
        GTEST_SKIP() << "bash-completion is not installed";
    const struct {
        std::vector<std::string> words;
        std::string offered;
    } cases[] = {
        {{"vellumdesk-cli", "li"}, "list\n"},
        {{"vellumdesk-cli", "--v"}, "--version\n"},
        {{"vellumdesk-cli", "help", "pl"}, "plugins\n"},
        {{"vellumdesk-cli", "list", "box", "--"}, "--filter\n--click\n--timings\n--help\n"},
        {{"vellumdesk-cli", "list", "box", "--filter", ""}, "from\nsubject\ndate\n"},
        {{"vellumdesk-cli", "list", "box", "--click", "6", "--click", ""}, "0\n1\n2\n3\n4\n5\n6\n"},
        {{"vellumdesk-cli", "search", "box", "x", "--w"}, "--whole-word\n--where\n"},
        {{"vellumdesk-cli", "search", "box", "x", "--where", "c"}, "current\n"},
        {{"vellumdesk-cli", "open", "m.eml", "--"}, "--client\n--help\n"},
    };
    const std::string completion = tree / "share/bash-completion/completions/vellumdesk-cli";
    for (const auto& c : cases)
        EXPECT_EQ(Complete(completion, c.words), c.offered) << c.words.back();
}

} // namespace
