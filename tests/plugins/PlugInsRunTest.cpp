// Starting an extension: real child processes of the recorder program, a
// headless message loop whose posted events act while a run waits.

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <dirent.h>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <thread>
#include <unistd.h>

#include "plugins/PlugIns.h"
#include "settings/Globals.h"
#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

int OpenDescriptors() {
    int count = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/fd"))
        count += entry.path().filename() != "." ? 1 : 0;
    return count;
}

// Gone for good: ended and collected, not left as a zombie.
bool Collected(std::int64_t pid) {
    for (int i = 0; i < 400; ++i) {
        if (::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return false;
}

// Children of this process that ended and were not collected.
int Zombies() {
    int zombies = 0;
    for (const auto& entry : fs::directory_iterator("/proc")) {
        const std::string stat = ReadFileBytes(entry.path().string() + "/stat");
        const auto close = stat.rfind(')');
        if (close == std::string::npos) continue;
        char state = 0;
        int parent = 0;
        if (std::sscanf(stat.c_str() + close + 1, " %c %d", &state, &parent) == 2 &&
            parent == ::getpid() && state == 'Z')
            ++zombies;
    }
    return zombies;
}

std::vector<std::string> RecordedArgs(const std::string& file) {
    std::vector<std::string> args;
    std::string text = ReadFileBytes(file), line;
    for (const char c : text) {
        if (c != '\n') {
            line += c;
            continue;
        }
        args.push_back(line);
        line.clear();
    }
    return args;
}

// A program in TMP/app with the recorder as TMP/app/help/viewer, and one
// extension "Help" whose manifest a test writes.
struct TRunSetup {
    TTempFolder tmp;
    TEnvOverride env;
    TGlobalScope scope{AnsiString(tmp / "app/vellumdesk")};
    AnsiString dataFolder{tmp / "data"};
    TPlugIns plugins;
    TStringList ids;
    std::string record = tmp / "argv.txt";
    std::string viewer = tmp / "app/help/viewer";

    TRunSetup() {
        tmp.MakeFolder("app/Extentions");
        InstallRecorder(viewer);
        env.Set("ARGV_RECORD_FILE", record.c_str());
        env.Set("ARGV_RECORD_READY", nullptr);
        env.Set("ARGV_RECORD_STAY", nullptr);
        plugins.SetDataFolder(dataFolder);
    }
    void InstallRecorder(const std::string& path) const {
        fs::create_directories(fs::path(path).parent_path());
        fs::copy_file(HelperProgram("argv_recorder"), path, fs::copy_options::overwrite_existing);
    }
    void Manifest(const std::string& text) {
        tmp.Write("app/Extentions/help.ini", "caption=Help\nmenuid=SystemHelp\n" + text);
        plugins.LoadExtensions("", ids);
        plugins.LoadPlugIns("", ids); // leaves the plug-in catalogue selected
    }
    // Runs event at each pass of the loop until it says it is done.
    void Every(std::function<bool()> event) {
        Application->Post([this, event] {
            if (!event()) Every(event);
        });
    }
    std::shared_ptr<TChildProcess> Child() { return plugins.ChildProcess.lock(); }
};

TEST(PlugInsRun, WhatEachManifestStarts) {
    struct TCase {
        const char* name;
        std::string manifest;
        bool result;
        std::vector<std::string> args; // empty: nothing starts; "$V" is the viewer
    } const cases[] = {
        {"child gets no parameters",
         "executable=help/viewer\nparam=/index\nexecute=child\n",
         true,
         {"$V"}},
        {"any case, leading separator", "executable=/help/viewer\nexecute=CHILD\n", true, {"$V"}},
        {"no action is a child", "executable=help/viewer\nparam=/x\n", true, {"$V"}},
        {"spawn joins the parameters",
         "executable=help/viewer\nparam=/index\nparam=/topic=start\nparam= a b \nexecute=Spawn\n",
         true,
         {"$V", "/index", "/topic=start", "a", "b"}},
        {"unknown word starts nothing", "executable=help/viewer\nexecute=open\n", true, {}},
        {"no executable", "param=/x\n", false, {}},
        {"no such file", "executable=help/none\n", false, {}},
        {"a folder", "executable=help\n", false, {}},
        {"not runnable", "executable=help/plain\n", true, {}},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.name);
        TRunSetup run;
        run.tmp.Write("app/help/plain", "#!/bin/sh\ntouch pwned\n");
        run.Manifest(c.manifest);
        EXPECT_EQ(run.plugins.ExecuteExtension("help"), c.result);
        std::vector<std::string> expected = c.args;
        if (!expected.empty()) expected[0] = run.viewer;
        EXPECT_EQ(expected.empty() ? std::vector<std::string>{} : RecordedArgs(run.record),
                  expected);
        EXPECT_FALSE(PathExists(run.record) && expected.empty());
        EXPECT_EQ(run.plugins.ParamList.Count(), 0);
    }
}

TEST(PlugInsRun, ExecutablesAreFoundAsPathsOnly) {
    TRunSetup run;
    const std::string odd = run.tmp / "app/odd $(touch pwned); name`id`";
    run.InstallRecorder(odd);
    struct TCase {
        const char* name;
        std::string executable;
        std::string started;
    } const cases[] = {
        {"absolute path that exists", run.viewer, run.viewer},
        {"shell characters", odd, odd},
        {"relative to the program", "odd $(touch pwned); name`id`", odd},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.name);
        ::unlink(run.record.c_str());
        run.Manifest("executable=" + c.executable + "\n");
        EXPECT_TRUE(run.plugins.ExecuteExtension("Help"));
        EXPECT_EQ(RecordedArgs(run.record), std::vector<std::string>{c.started});
    }
    EXPECT_FALSE(PathExists(run.tmp / "pwned"));
    EXPECT_FALSE(PathExists(run.tmp / "app/pwned"));
}

TEST(PlugInsRun, ARunWaitsForAChildThatIsUpUntilItEnds) {
    TRunSetup run;
    run.env.Set("ARGV_RECORD_READY", "1");
    run.env.Set("ARGV_RECORD_STAY", "1");
    run.Manifest("executable=help/viewer\n");
    const int descriptors = OpenDescriptors();
    int passesWhileUp = 0;
    std::int64_t pid = 0;
    run.Every([&] {
        if (!run.Child() || !PathExists(run.record)) return false;
        EXPECT_TRUE(run.plugins.IsChildRunning());
        if (++passesWhileUp < 20) return false;
        pid = run.Child()->Id();
        ::kill(static_cast<pid_t>(pid), SIGTERM);
        return true;
    });
    EXPECT_TRUE(run.plugins.ExecuteExtension("Help"));
    EXPECT_EQ(passesWhileUp, 20); // returned only once the child had been ended
    EXPECT_TRUE(Collected(pid));
    EXPECT_FALSE(run.plugins.IsChildRunning());
    EXPECT_EQ(OpenDescriptors(), descriptors);
    EXPECT_EQ(run.scope.App().WindowOrderCalls,
              (std::vector<std::string>{"NormalizeAllTopMosts", "BringToFront"}));
}

TEST(PlugInsRun, ASecondRunWhileAChildRunsCollectsBoth) {
    TRunSetup run;
    run.env.Set("ARGV_RECORD_READY", "1");
    run.env.Set("ARGV_RECORD_STAY", "1");
    run.Manifest("executable=help/viewer\n");
    const int descriptors = OpenDescriptors();
    std::int64_t first = 0, second = 0;
    run.Every([&] {
        if (!run.Child() || first != 0) return first != 0;
        first = run.Child()->Id();
        run.Every([&] {
            const auto child = run.Child();
            if (!child || child->Id() == first) return false;
            second = child->Id();
            ::kill(static_cast<pid_t>(second), SIGTERM);
            return true;
        });
        EXPECT_TRUE(run.plugins.ExecuteExtension("Help")); // the second click
        ::kill(static_cast<pid_t>(first), SIGTERM);
        return true;
    });
    EXPECT_TRUE(run.plugins.ExecuteExtension("Help"));
    EXPECT_NE(first, second);
    EXPECT_TRUE(Collected(first));
    EXPECT_TRUE(Collected(second));
    EXPECT_EQ(OpenDescriptors(), descriptors);
}

TEST(PlugInsRun, ClosingTheProgramStopsTheWaitAndTheChildIsStillCollected) {
    TRunSetup run;
    run.env.Set("ARGV_RECORD_READY", "1");
    run.env.Set("ARGV_RECORD_STAY", "1");
    run.Manifest("executable=help/viewer\n");
    std::int64_t pid = 0;
    run.Every([&] {
        if (!run.Child() || !PathExists(run.record)) return false;
        pid = run.Child()->Id();
        Application->Terminate();
        return true;
    });
    EXPECT_TRUE(run.plugins.ExecuteExtension("Help"));
    ASSERT_GT(pid, 0);
    EXPECT_EQ(::kill(static_cast<pid_t>(pid), 0), 0); // it runs on without us
    ::kill(static_cast<pid_t>(pid), SIGTERM);
    EXPECT_TRUE(Collected(pid));
}

// A caller's lines go to a file beside the program for as long as the child
// runs; a child that never says it is up is waited for three seconds only.
TEST(PlugInsRun, ParameterFileLivesWhileTheChildGetsUp) {
    TRunSetup run;
    run.env.Set("ARGV_RECORD_STAY", "1");
    run.Manifest("executable=help/viewer\nparam=/ignored\n");
    run.plugins.ParamList.Add("first line");
    run.plugins.ParamList.Add("second=line");
    const std::string file = run.tmp / "app/help/viewer.ini";
    std::string seen;
    std::int64_t pid = 0;
    run.Every([&] {
        if (!run.Child() || !PathExists(run.record)) return false;
        pid = run.Child()->Id();
        seen = ReadFileBytes(file);
        return true;
    });
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(run.plugins.ExecuteExtension("Help"));
    EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2900));
    EXPECT_EQ(seen, "first line\r\nsecond=line\r\n");
    EXPECT_FALSE(PathExists(file));
    EXPECT_EQ(RecordedArgs(run.record), (std::vector<std::string>{run.viewer, "viewer.ini"}));
    EXPECT_EQ(run.plugins.ParamList.Count(), 0);
    ::kill(static_cast<pid_t>(pid), SIGTERM);
    EXPECT_TRUE(Collected(pid));
}

TEST(PlugInsRun, AChildThatEndsAtOnceEndsTheWaitAtOnce) {
    for (const char* ready : {"1", static_cast<const char*>(nullptr)}) {
        SCOPED_TRACE(ready ? "says it is up first" : "says nothing");
        TRunSetup run;
        run.env.Set("ARGV_RECORD_READY", ready);
        run.env.Set("ARGV_RECORD_EXIT", "259");
        run.Manifest("executable=help/viewer\n");
        const int descriptors = OpenDescriptors();
        const auto start = std::chrono::steady_clock::now();
        EXPECT_TRUE(run.plugins.ExecuteExtension("Help"));
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(2000));
        EXPECT_EQ(RecordedArgs(run.record), std::vector<std::string>{run.viewer});
        for (int i = 0; i < 200 && Zombies() > 0; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        EXPECT_EQ(Zombies(), 0);
        EXPECT_EQ(OpenDescriptors(), descriptors);
    }
}

// The Help buttons: the extension with the id SystemHelp, and one log line.
TEST(PlugInsRun, SystemHelpRunsTheExtensionWithItsIdAndLogsIt) {
    struct TCase {
        const char* name;
        std::string manifest;
        bool started, logged;
        bool stayOnTop;
        std::vector<std::string> windowOrder;
    } const cases[] = {
        {"no such id",
         "caption=Viewer\nmenuid=Other\nexecutable=help/viewer\n",
         false,
         false,
         false,
         {}},
        {"runs",
         "caption=Viewer\nmenuid=SystemHelp\nexecutable=help/viewer\n",
         true,
         true,
         false,
         {"NormalizeAllTopMosts", "BringToFront"}},
        {"stays on top again",
         "caption=Viewer\nmenuid=SystemHelp\nexecutable=help/viewer\n",
         true,
         true,
         true,
         {"NormalizeAllTopMosts", "BringToFront", "RestoreTopMosts"}},
        {"unknown action still logs",
         "caption=Viewer\nmenuid=SystemHelp\nexecutable=help/viewer\nexecute=print\n",
         false,
         true,
         true,
         {"NormalizeAllTopMosts"}},
        {"no program file",
         "caption=Viewer\nmenuid=SystemHelp\nexecutable=gone\n",
         false,
         false,
         true,
         {}},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.name);
        TRunSetup run;
        run.env.Set("XDG_DATA_HOME", (run.tmp / "xdg").c_str());
        run.tmp.Write("app/Extentions/viewer.ini", c.manifest);
        TGlobals globals;
        Globals = &globals;
        globals.InitFolders();
        globals.Config.Bytes[ConfigRecord::stayOnTop] = c.stayOnTop ? 1 : 0;
        globals.RunSystemHelp();
        Globals = nullptr;
        EXPECT_EQ(PathExists(run.record), c.started);
        const std::string log = PathExists(run.tmp / "app/Debug.txt")
                                    ? ReadFileBytes(run.tmp / "app/Debug.txt")
                                    : std::string();
        EXPECT_EQ(log.find(" - SystemHelp\r\n") != std::string::npos, c.logged) << log;
        EXPECT_EQ(PlugIns->ParamList.Count(), 0);
        EXPECT_EQ(run.scope.App().WindowOrderCalls, c.windowOrder);
    }
}

} // namespace

namespace {

// The help the program ships, end to end: its manifest, the viewer and the
// manual laid out as beside an installed program. Offscreen the viewer saves
// a picture and ends; the picture is there when the Help run returns, and the
// viewer has been collected.
TEST(PlugInsRun, TheShippedHelpShowsTheManualAndIsWaitedFor) {
    const std::string viewer = BuiltProgram("vellumdesk-help");
    if (!PathExists(viewer)) GTEST_SKIP() << "built without the desktop programs";
    TTempFolder tmp;
    TEnvOverride env;
    env.Set("XDG_DATA_HOME", (tmp / "xdg").c_str());
    env.Set("QT_QPA_PLATFORM", "offscreen");
    env.Set("VELLUMDESK_HELP_SCREENSHOT", (tmp / "manual.png").c_str());
    for (const char* part : {"Help", "Extentions"})
        fs::create_directories(tmp / ("app/" + std::string(part)));
    fs::copy_file(viewer, tmp / "app/vellumdesk-help");
    fs::copy_file(BuiltProgram("Help/vellumdesk-manual.html"),
                  tmp / "app/Help/vellumdesk-manual.html");
    fs::copy_file(std::string(VD_SOURCE_DIR) + "/Extentions/vellumdesk-help.ini",
                  tmp / "app/Extentions/vellumdesk-help.ini");
    TGlobalScope scope(AnsiString(tmp / "app/vellumdesk"));
    TGlobals globals;
    Globals = &globals;
    globals.InitFolders();
    globals.RunSystemHelp();
    Globals = nullptr;
    EXPECT_TRUE(PathExists(tmp / "manual.png"));
    EXPECT_NE(ReadFileBytes(tmp / "app/Debug.txt").find(" - SystemHelp\r\n"), std::string::npos);
    for (int i = 0; i < 200 && Zombies() > 0; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_EQ(Zombies(), 0);
}

} // namespace
