// The desktop program under a real X server: it starts on a copy of a small
// suite, fits the screen, sorts on a header click, opens a button's menu from
// the keyboard directly under the button, and closes on Ctrl+Q. Needs Xvfb,
// xdotool and xwd (scripts/bootstrap installs them); skipped without them.

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <thread>

#include "support/BackgroundProcess.h"
#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

namespace {

namespace fs = std::filesystem;

struct TGeometry {
    int x = 0, y = 0, width = 0, height = 0;
};

class DesktopSmoke : public ::testing::TestWithParam<const char*> {
protected:
    TTempFolder folder;
    TEnvOverride env;
    std::map<std::string, std::string> tools;
    std::unique_ptr<TBackgroundProcess> xserver, program;

    void SetUp() override {
        for (const char* name : {"Xvfb", "xdotool", "xwd"}) {
            tools[name] = FindOnPath(name);
            if (tools[name].empty()) GTEST_SKIP() << name << " is not installed";
        }
        // Xvfb picks a free display itself and names it on its output once it
        // takes connections, so a stale socket or a test beside this one
        // cannot hand us a display that is not ours.
        xserver = std::make_unique<TBackgroundProcess>(
            std::vector<std::string>{tools["Xvfb"], "-displayfd", "1", "-screen", "0",
                                     "1280x800x24", "-nolisten", "tcp"},
            folder / "xvfb.log");
        std::string display;
        ASSERT_TRUE(WaitFor([&] {
                        display = AnnouncedDisplay(ReadFileBytes(folder / "xvfb.log"));
                        return !display.empty() || !xserver->Running();
                    }) &&
                    !display.empty())
            << ReadFileBytes(folder / "xvfb.log");
        env.Set("DISPLAY", display.c_str());
        env.Set("QT_QPA_PLATFORM", "xcb");
        env.Set("QT_SCALE_FACTOR", GetParam());
        env.Set("XDG_DATA_HOME", (folder / "data").c_str());
        fs::create_directories(folder / "run");
        fs::permissions(folder / "run", fs::perms::owner_all);
        env.Set("XDG_RUNTIME_DIR", (folder / "run").c_str());
        X({"mousemove", "0", "0"});
    }

    // The display number Xvfb writes on a line of its own, as ":N".
    static std::string AnnouncedDisplay(const std::string& log) {
        std::istringstream lines(log);
        for (std::string line; std::getline(lines, line);)
            if (!line.empty() && std::all_of(line.begin(), line.end(), ::isdigit))
                return ":" + line;
        return {};
    }
    template <typename Condition> static bool WaitFor(Condition condition) {
        for (int i = 0; i < 400; ++i) {
            if (condition()) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return false;
    }
    std::string X(std::vector<std::string> args) {
        args.insert(args.begin(), tools["xdotool"]);
        return RunChild(args).out;
    }
    // The program, copied beside its hand-off file, over a mailbox of three.
    void StartProgram() {
        fs::create_directories(folder / "bin");
        fs::copy_file(BuiltProgram("vellumdesk"), folder / "bin/vellumdesk");
        folder.Write("bin/vellumdesk.ini", folder / "box" + "\r\nSam\r\n");
        const char* people[][2] = {{"carol", "Jan"}, {"alice", "Feb"}, {"bob", "Mar"}};
        for (const auto& [from, month] : people)
            folder.Write("box/" + std::string(from) + ".eml",
                         "From: " + std::string(from) + "\r\nSubject: s\r\nDate: Mon, 5 " + month +
                             " 2003 10:00:00 +0000\r\n\r\nx\r\n");
        std::string config(1024, '\0');
        config.replace(395, 8, "Recorder");
        folder.Write("data/Quillpost Users/Config.cfg", config);
        program = std::make_unique<TBackgroundProcess>(
            std::vector<std::string>{folder / "bin/vellumdesk"}, folder / "program.log");
    }
    // The visible windows whose name holds text (all of the program's for "").
    std::vector<std::string> Windows(const std::string& name) {
        std::vector<std::string> ids;
        std::istringstream out(X({"search", "--onlyvisible", "--name", name}));
        for (std::string id; std::getline(out, id);)
            if (!id.empty()) ids.push_back(id);
        return ids;
    }
    TGeometry GeometryOf(const std::string& id) {
        std::map<std::string, int> values;
        std::istringstream out(X({"getwindowgeometry", "--shell", id}));
        for (std::string line; std::getline(out, line);)
            if (const auto eq = line.find('='); eq != std::string::npos)
                values[line.substr(0, eq)] = std::atoi(line.c_str() + eq + 1);
        return {values["X"], values["Y"], values["WIDTH"], values["HEIGHT"]};
    }
    std::string Shot(const std::string& name, const std::string& window = "root") {
        const std::string path = folder / name;
        RunChild({tools["xwd"], "-silent", window == "root" ? "-root" : "-id",
                  window == "root" ? "-screen" : window, "-out", path});
        return ReadFileBytes(path);
    }
    // A visible window that was not there before: an open menu.
    std::string OpenMenu(const std::vector<std::string>& before) {
        std::string menu;
        WaitFor([&] {
            for (const std::string& id : Windows(""))
                if (std::find(before.begin(), before.end(), id) == before.end()) menu = id;
            return !menu.empty();
        });
        return menu;
    }
    bool Closed(const std::string& id) {
        return WaitFor([&] {
            const auto shown = Windows("");
            return std::find(shown.begin(), shown.end(), id) == shown.end();
        });
    }
};

TEST_P(DesktopSmoke, SortsOpensAMenuUnderItsButtonAndCloses) {
    StartProgram();
    std::string main;
    ASSERT_TRUE(WaitFor([&] {
        const auto found = Windows("Saved Messages For: box");
        if (!found.empty()) main = found[0];
        return !main.empty();
    })) << ReadFileBytes(folder / "program.log");
    const TGeometry window = GeometryOf(main);
    EXPECT_GE(window.x, 0);
    EXPECT_GE(window.y, 0);
    EXPECT_LE(window.x + window.width, 1280) << "the window fits the screen";
    EXPECT_LE(window.y + window.height, 800) << "the window fits the screen";

    // The header of the From column, a little below the filter bar.
    const double scale = std::atof(GetParam());
    const std::string before = Shot("before.xwd", main);
    X({"mousemove", std::to_string(window.x + static_cast<int>(30 * scale)),
       std::to_string(window.y + static_cast<int>(48 * scale)), "click", "1"});
    X({"mousemove", "0", "0"});
    EXPECT_TRUE(WaitFor([&] { return Shot("sorted.xwd", main) != before; }))
        << "the rows changed their order";

    // Alt+T is the filter text; three Tabs on, the menu button of Browse.
    X({"windowfocus", "--sync", main});
    const std::vector<std::string> windows = Windows("");
    X({"key", "--delay", "100", "alt+t", "Tab", "Tab", "Tab", "space"});
    const std::string menu = OpenMenu(windows);
    ASSERT_FALSE(menu.empty()) << "Space on the menu button opened no menu";
    const TGeometry shown = GeometryOf(menu);
    EXPECT_FALSE(Shot("menu.xwd").empty());
    EXPECT_GT(shown.y, window.y + window.height / 2) << "the menu is by the button bar";
    EXPECT_LT(shown.y, window.y + window.height);

    // Just above the menu's top-left corner lies the button that opened it:
    // a click there opens the same menu at the same place.
    X({"key", "Escape"});
    ASSERT_TRUE(Closed(menu));
    X({"mousemove", std::to_string(shown.x + 3), std::to_string(shown.y - 3), "click", "1"});
    const std::string again = OpenMenu(windows);
    ASSERT_FALSE(again.empty()) << "the point above the menu is not its button";
    const TGeometry second = GeometryOf(again);
    EXPECT_EQ(second.x, shown.x);
    EXPECT_EQ(second.y, shown.y);
    X({"key", "Escape"});
    ASSERT_TRUE(Closed(again));

    X({"mousemove", "0", "0"});
    X({"windowfocus", "--sync", main});
    X({"key", "ctrl+q"});
    EXPECT_TRUE(WaitFor([&] { return !program->Running(); })) << "Ctrl+Q closed the program";
}

INSTANTIATE_TEST_SUITE_P(ScaleFactors, DesktopSmoke, ::testing::Values("1", "1.5"),
                         [](const auto& info) { return info.index == 0 ? "One" : "OneAndAHalf"; });

} // namespace
