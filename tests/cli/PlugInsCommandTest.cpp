// vellumdesk-cli plugins: the four lists of a real start, as lines.

#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

TEST(PlugInsCommand, PrintsTheFourListsInOrderWithTheirTextsEscaped) {
    TTempFolder tmp;
    TEnvOverride env;
    env.Set("XDG_DATA_HOME", (tmp / "xdg").c_str());
    const std::string own = tmp.Write("suite/Extentions/help.ini",
                                      "caption=Manual\nmenuid=SystemHelp\nexecutable=viewer\n");
    tmp.MakeFolder("suite/bin");
    const std::string data =
        tmp.Write("xdg/Quillpost Users/Extentions/tab.ini", "caption=Tab\there\\too\n");
    const std::string plugIn = tmp.Write("xdg/Quillpost Users/PlugIns/p.ini", "menuid=Tools\n");
    tmp.Write("xdg/Quillpost Users/PlugIns/empty.ini", "");

    const TChildResult result = RunChild(
        {BuiltProgram("vellumdesk-cli"), "plugins", "--program", tmp / "suite/bin/vellumdesk"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "ExtensionList\tManual=" + own + "\n" +
                              "ExtensionList\tTab\\there\\\\too=" + data + "\n" +
                              "ExtensionIds\tSystemHelp=Manual\n"
                              "ExtensionIds\t=Tab\\there\\\\too\n"
                              "PlugInList\tp=" +
                              plugIn + "\n" + "PlugInIds\tTools=p\n");
    EXPECT_EQ(result.err, "");
}

TEST(PlugInsCommand, RefusesWordsItDoesNotTake) {
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"plugins", "extra"}, {"plugins", "--program"}}) {
        std::vector<std::string> argv{BuiltProgram("vellumdesk-cli")};
        argv.insert(argv.end(), args.begin(), args.end());
        const TChildResult result = RunChild(argv);
        EXPECT_EQ(result.exitCode, 2) << args.back();
        EXPECT_EQ(result.out, "");
    }
}

} // namespace
