// Sound is real: a private PulseAudio server with a null sink, started by the
// test in a folder of its own, plays what the program plays, and the sink's
// monitor is recorded and measured.

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

#include "platform/linux/CanberraSound.h"
#include "support/ChildProcess.h"
#include "support/EnvOverride.h"
#include "support/TempFolder.h"

extern char** environ;

namespace {

constexpr int recordRate = 22050;

// A child whose standard output goes to a file; ended with SIGTERM by its id.
class TBackground {
public:
    TBackground(const std::vector<std::string>& argv, const std::string& outFile) {
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, 1, outFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                         0644);
        posix_spawn_file_actions_addopen(&actions, 2, (outFile + ".err").c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0644);
        std::vector<char*> args;
        for (const std::string& arg : argv)
            args.push_back(const_cast<char*>(arg.c_str()));
        args.push_back(nullptr);
        if (posix_spawnp(&pid, args[0], &actions, nullptr, args.data(), environ) != 0) pid = -1;
        posix_spawn_file_actions_destroy(&actions);
    }
    ~TBackground() { Stop(); }
    bool Started() const { return pid > 0; }
    bool Running() const { return pid > 0 && waitpid(pid, nullptr, WNOHANG) == 0; }
    void Stop() {
        if (pid <= 0) return;
        kill(pid, SIGTERM);
        waitpid(pid, nullptr, 0);
        pid = -1;
    }

private:
    pid_t pid = -1;
};

// PulseAudio refuses root unless told otherwise: -n (no default script),
// no daemon, no idle exit, and only the two modules loaded by hand. Its
// socket, state and cookie all live in the test's folder.
class TPrivateSoundServer {
public:
    explicit TPrivateSoundServer(const TTempFolder& folder)
        : runtime(folder.MakeFolder("pulse")),
          server({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                  "--system=no", "--disable-shm=yes", "--log-target=stderr", "-L",
                  "module-null-sink sink_name=vdtest rate=22050", "-L",
                  "module-native-protocol-unix auth-anonymous=1 socket=" + runtime + "/native"},
                 runtime + "/server.log") {}

    // Waits until a client gets an answer, five seconds at the most.
    bool Ready() {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(5);
        while (server.Running() && std::chrono::steady_clock::now() < deadline) {
            if (RunChild({"/usr/bin/pactl", "info"}).exitCode == 0) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return false;
    }
    std::string Log() const { return ReadFileBytes(runtime + "/server.log.err"); }
    const std::string runtime;

private:
    TEnvOverride env;
    bool environmentSet = SetEnvironment();
    TBackground server;

    bool SetEnvironment();
};

// The server and its clients find each other only through these.
bool TPrivateSoundServer::SetEnvironment() {
    for (const char* name : {"XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "HOME"})
        env.Set(name, runtime.c_str());
    env.Set("PULSE_STATE_PATH", (runtime + "/state").c_str());
    env.Set("PULSE_SERVER", ("unix:" + runtime + "/native").c_str());
    env.Set("PULSE_CLIENTCONFIG", "/dev/null");
    return true;
}

std::string MakeChime(const std::string& path, int ms) {
    const TChildResult made = RunChild({std::string(VD_BINARY_DIR) + "/vellumdesk-cli",
                                        "make-sound", path, std::to_string(ms), "660"});
    EXPECT_EQ(made.exitCode, 0) << made.err;
    return path;
}

// Milliseconds of the recording, 10 ms at a time, whose level is above
// silence.
int LoudMilliseconds(const std::string& raw) {
    const std::size_t window = recordRate / 100;
    const std::size_t samples = raw.size() / 2;
    int loud = 0;
    for (std::size_t start = 0; start + window <= samples; start += window) {
        double sum = 0;
        for (std::size_t i = start; i < start + window; ++i) {
            const auto lo = static_cast<unsigned char>(raw[2 * i]);
            const auto hi = static_cast<unsigned char>(raw[2 * i + 1]);
            const double v = static_cast<std::int16_t>(lo | (hi << 8));
            sum += v * v;
        }
        if (std::sqrt(sum / double(window)) > 1000) loud += 10;
    }
    return loud;
}

bool UnderCi() {
    const char* ci = std::getenv("CI");
    return ci && std::string(ci) == "true";
}

TEST(CanberraSound, PlaysAWavThroughTheSoundServerToItsEnd) {
    TTempFolder folder;
    TPrivateSoundServer server(folder);
    if (!server.Ready()) {
        std::fprintf(stderr,
                     "\n*** NO SOUND SERVER: the private PulseAudio server did not start; the "
                     "sound test proves nothing here.\n*** server log:\n%s\n",
                     server.Log().c_str());
        if (UnderCi()) FAIL() << "no private sound server under CI";
        GTEST_SKIP() << "no private sound server";
    }
    const std::string chime = MakeChime(folder / "chime.wav", 600);
    TBackground recorder({"parec", "-d", "vdtest.monitor", "--raw", "--format=s16le",
                          "--rate=22050", "--channels=1", "--latency-msec=20"},
                         folder / "recorded.raw");
    ASSERT_TRUE(recorder.Started());
    std::this_thread::sleep_for(std::chrono::milliseconds(400));

    TCanberraSound sound;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(sound.PlayFile(AnsiString(chime)));
    const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now() - start);
    std::this_thread::sleep_for(std::chrono::milliseconds(400));
    recorder.Stop();

    // Synchronous: the call returned only once the sound had played.
    EXPECT_GE(took.count(), 550);
    const int loud = LoudMilliseconds(ReadFileBytes(folder / "recorded.raw"));
    std::fprintf(stderr, "sound test: played for %lld ms, recorded %d ms of sound\n",
                 static_cast<long long>(took.count()), loud);
    EXPECT_GE(loud, 450) << "recorded " << loud << " ms of sound for a 600 ms chime";
    EXPECT_LE(loud, 800) << "recorded " << loud << " ms of sound for a 600 ms chime";
}

TEST(CanberraSound, FailsQuietlyWithoutAServerOrWithABrokenFile) {
    TTempFolder folder;
    const std::string broken = folder.Write("broken.wav", "RIFF....not a sound");
    const std::string chime = MakeChime(folder / "chime.wav", 100);
    TCanberraSound sound;
    {
        TPrivateSoundServer server(folder);
        if (server.Ready()) {
            EXPECT_FALSE(sound.PlayFile(AnsiString(broken)));
            EXPECT_FALSE(sound.PlayFile(AnsiString(folder / "missing.wav")));
            EXPECT_FALSE(sound.PlayFile(""));
        }
    }
    TEnvOverride env;
    env.Set("PULSE_SERVER", ("unix:" + folder / "no-server").c_str());
    env.Set("PULSE_CLIENTCONFIG", "/dev/null");
    env.Set("CANBERRA_DRIVER", "pulse");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(sound.PlayFile(AnsiString(chime)));
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

} // namespace
