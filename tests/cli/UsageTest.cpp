#include <gtest/gtest.h>
#include <regex>
#include <sstream>

#include "cli/CliUsage.h"
#include "support/ChildProcess.h"
#include "support/TempFolder.h"

namespace {

TChildResult Cli(std::vector<std::string> args, const std::string& input = {}) {
    args.insert(args.begin(), BuiltProgram("vellumdesk-cli"));
    return RunChild(args, input);
}

struct TUsageCase {
    std::vector<std::string> args;
    int exitCode;
    std::vector<std::string> out, err; // texts that must appear; an empty list: nothing at all
};

void Check(const TUsageCase& c, const TChildResult& r) {
    std::string what;
    for (const std::string& arg : c.args)
        what += " " + arg;
    EXPECT_EQ(r.exitCode, c.exitCode) << what << "\n" << r.err;
    for (const auto& [wanted, got] : {std::pair{&c.out, &r.out}, std::pair{&c.err, &r.err}}) {
        if (wanted->empty()) {
            EXPECT_EQ(*got, "") << what;
        }
        for (const std::string& text : *wanted)
            EXPECT_NE(got->find(text), std::string::npos) << what << " lacks " << text << ":\n"
                                                          << *got;
    }
}

const std::string listUsage =
    "usage: vellumdesk-cli list FOLDER [--filter from|subject|date TEXT] [--click COLUMN]... "
    "[--timings]";

TEST(CliUsage, HelpGoesToStandardOutputAndAWrongWordToStandardError) {
    TTempFolder folder;
    const std::string box = folder.MakeFolder("box");
    const std::vector<std::string> everyCommand = {"usage: vellumdesk-cli COMMAND",
                                                   "\n  list FOLDER [--filter",
                                                   "\n  clients\n",
                                                   "\n  open FILE [--client NAME]\n",
                                                   "\n  script FILE|- [--program PATH]\n",
                                                   "\n  make-config DESCRIPTION OUT\n",
                                                   "\n  help [COMMAND]\n"};
    const TUsageCase cases[] = {
        {{"--help"}, 0, everyCommand, {}},
        {{"-h"}, 0, everyCommand, {}},
        {{"help"}, 0, everyCommand, {}},
        {{"help", "list"}, 0, {listUsage, "\n  --click COLUMN\n", "6 File Name"}, {}},
        {{"list", "--help"}, 0, {listUsage, "\n  --filter from|subject|date TEXT\n"}, {}},
        {{"open", "x.eml", "-h"}, 0, {"usage: vellumdesk-cli open FILE", "--client NAME"}, {}},
        {{}, 2, {}, {"usage: vellumdesk-cli COMMAND"}},
        {{"--bogus"}, 2, {}, {"vellumdesk-cli: unknown option '--bogus'\n", "\n  list FOLDER"}},
        {{"frob"}, 2, {}, {"vellumdesk-cli: unknown command 'frob'\n", "\n  list FOLDER"}},
        {{"help", "frob"}, 2, {}, {"unknown command 'frob'", "usage: vellumdesk-cli COMMAND"}},
        {{"list", box, "--bogus"},
         2,
         {},
         {"vellumdesk-cli list: unknown option '--bogus'\n" + listUsage + "\n"}},
        {{"list", box, "--filter", "subject"},
         2,
         {},
         {"vellumdesk-cli list: option '--filter' needs from|subject|date TEXT\n" + listUsage}},
        {{"list", box, "--click"}, 2, {}, {"option '--click' needs COLUMN"}},
        {{"list", box, "--click", "9"}, 2, {}, {listUsage}},
        {{"script", "-x"}, 2, {}, {"vellumdesk-cli script: unknown option '-x'"}},
        {{"clients", "extra"}, 2, {}, {"usage: vellumdesk-cli clients\n"}},
        {{"make-config", "one"}, 2, {}, {"usage: vellumdesk-cli make-config DESCRIPTION OUT\n"}},
        // An option's operand is never taken for an option, even when it looks like one.
        {{"list", box, "--filter", "subject", "--help"}, 0, {}, {"0 Messages"}},
    };
    for (const TUsageCase& c : cases)
        Check(c, Cli(c.args));
}

TEST(CliUsage, AScriptErrorKeepsItsLineNumber) {
    const TChildResult r = Cli({"script", "-"}, "# a comment\nfrobnicate\n");
    EXPECT_EQ(r.exitCode, 2);
    EXPECT_EQ(r.err.substr(0, 8), "line 2: ") << r.err;
    EXPECT_EQ(r.out, "");
}

TEST(CliUsage, VersionIsOneLine) {
    const TChildResult r = Cli({"--version"});
    EXPECT_EQ(r.exitCode, 0);
    EXPECT_TRUE(std::regex_match(r.out, std::regex("vellumdesk-cli [0-9]+\\.[0-9]+(\\.[0-9]+)*\n")))
        << r.out;
}

// Every command the program lists has a usage of its own with all its options.
TEST(CliUsage, EveryListedCommandExplainsEachOption) {
    const std::string all = Cli({"--help"}).out;
    int listed = 0;
    for (const TCliUsage& usage : CliUsageTable::commands) {
        const std::string name(usage.Name);
        if (all.find("\n  " + name + " ") == std::string::npos &&
            all.find("\n  " + name + "\n") == std::string::npos)
            continue;
        ++listed;
        const TChildResult r = Cli({"help", name});
        EXPECT_EQ(r.exitCode, 0) << name;
        EXPECT_EQ(r.out.rfind("usage: vellumdesk-cli " + name, 0), 0u) << r.out;
        for (const TCliOption& option : usage.Options)
            EXPECT_NE(r.out.find("\n  " + std::string(option.Name)), std::string::npos)
                << name << " " << option.Name;
    }
    EXPECT_GE(listed, 6) << all;
}

// A command without an entry in the usage table would be listed bare, and be
// missing from the manual page and the completion.
TEST(CliUsage, EveryListedCommandHasAnEntryInTheTable) {
    std::istringstream lines(Cli({"--help"}).out);
    std::vector<std::string> names;
    for (std::string line; std::getline(lines, line);)
        if (line.size() > 2 && line.starts_with("  ") && line[2] != ' ')
            names.push_back(line.substr(2, line.find(' ', 2) - 2));
    EXPECT_GE(names.size(), 6u);
    for (const std::string& name : names)
        EXPECT_NE(FindCliUsage(name), nullptr) << name;
}

} // namespace
