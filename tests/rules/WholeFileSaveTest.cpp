// Every whole-file save of the program, under a disk that fills (the file-size
// limit of a child stands for it) and under a kill at a random moment: the
// file keeps its old bytes or holds those of one whole save, never a mix, and
// a save that failed leaves no temporary file behind.

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <set>
#include <sys/resource.h>

#include "RulesFixture.h"
#include "forwarding/SendToForm.h"
#include "platform/ScriptedDialogs.h"
#include "rules/FilterCriteria.h"
#include "settings/PanelButtons.h"
#include "support/ChildProcess.h"

namespace {

namespace fs = std::filesystem;

// One writer: the file it replaces, and one save that adds a line to it.
struct TSaver {
    const char* name;
    std::string path;
    std::string prefix, suffix; // of each line: prefix, the save's number, a long filler, suffix
    std::function<void(const std::string& line)> save;

    std::string Line(int i) const {
        return prefix + std::to_string(i) + std::string(300, 'p') + suffix;
    }
};

class WholeFileSave : public RulesFixture {
protected:
    TPButtons buttons;
    TScriptedDialogs dialogs;
    std::unique_ptr<TfrmFilterCriteria> editor;
    std::unique_ptr<TfrmSendTo> sendTo;

    WholeFileSave() {
        Globals = &globals;
        PButtons = &buttons;
        Dialogs = &dialogs;
        globals.DataFolder = AnsiString(folder.MakeFolder("data"));
        editor = std::make_unique<TfrmFilterCriteria>();
        sendTo = std::make_unique<TfrmSendTo>();
    }
    ~WholeFileSave() override {
        scope.App().ModalLoop = nullptr;
        sendTo.reset();
        editor.reset();
        Dialogs = nullptr;
        PButtons = nullptr;
        Globals = nullptr;
    }

    std::vector<TSaver> Savers() {
        const std::string message = folder.Write("data/m.eml", "From: a\r\n\r\nx\r\n");
        const std::string rules = mailbox + "/PriorityMail.ini";
        return {
            {"rule file", rules, "rule ", "|||||||||",
             [this, rules](const std::string& line) {
                 globals.AppendRuleLine(AnsiString(rules), AnsiString(line));
             }},
            {"Alerts.ini", shared + "/Alerts.ini", "SOUND", "=/sounds/chime.wav",
             [this](const std::string& line) {
                 TStringList alerts;
                 globals.LoadAlerts(alerts);
                 alerts.Add(AnsiString(line));
                 globals.SaveAlerts(alerts);
             }},
            {"Filter Editor address history", shared + "/AddressBook.ini", "friend", "@example.org",
             [this](const std::string& line) {
                 editor->cbFwdAddress.SetText(AnsiString(line));
                 editor->SyncAddressBook(false);
             }},
            {"Filter Editor folder history", shared + "/AltPath.ini", "/home/sam/Mail/box", "",
             [this](const std::string& line) {
                 editor->LMDcbAltFolder.SetText(AnsiString(line));
                 editor->SyncAltPaths(false);
             }},
            {"forward dialog recipients", folder / "data/AddressBook.ini", "to", "@example.net",
             [this, message](const std::string& line) {
                 scope.App().ModalLoop = [this, line](TForm&) {
                     sendTo->LMDcbSendTo.UserType(AnsiString(line));
                 };
                 sendTo->OpenForward(AnsiString(message), "sam@example.org");
             }},
        };
    }

    // The file as the saves 0 to count - 1 would leave it.
    static std::string Rounds(const TSaver& saver, int count) {
        std::string bytes;
        for (int i = 0; i < count; ++i)
            bytes += saver.Line(i) + "\r\n";
        TTempFolder::WriteTo(saver.path, bytes);
        return bytes;
    }

    // Which of the saver's lines the file holds; false if it holds anything else.
    static bool Rounds(const TSaver& saver, const std::string& bytes, std::set<int>& rounds) {
        if (!bytes.empty() && !bytes.ends_with("\r\n")) return false;
        std::size_t at = 0;
        while (at < bytes.size()) {
            const std::size_t end = bytes.find("\r\n", at);
            const std::string line = bytes.substr(at, end - at);
            at = end + 2;
            if (line == "~NONE~=~none~") continue; // the line of a new Alerts.ini
            const std::size_t digits = line.find_first_of("0123456789");
            if (digits == std::string::npos) return false;
            const int i = std::atoi(line.c_str() + digits);
            if (line != saver.Line(i) || !rounds.insert(i).second) return false;
        }
        return true;
    }

public:
    // The saver's own file and its lock are all that may stay in its folder.
    static int Strays(const std::string& path) {
        const fs::path file(path);
        int strays = 0;
        for (const auto& entry : fs::directory_iterator(file.parent_path())) {
            const std::string name = entry.path().filename().string();
            strays += name.starts_with(file.filename().string() + ".") && !name.ends_with(".lock");
        }
        return strays;
    }
};

TEST_F(WholeFileSave, ADiskThatFillsDuringAnySaveLeavesTheOldFile) {
    for (const TSaver& saver : Savers()) {
        const std::string old = Rounds(saver, 20);
        ASSERT_GT(old.size(), 2000u) << saver.name;
        // Whether the write fails (EFBIG) or the child dies of SIGXFSZ.
        for (bool killed : {false, true}) {
            const int code = RunForked([&] {
                if (!killed) signal(SIGXFSZ, SIG_IGN);
                const rlimit limit{old.size(), old.size()};
                setrlimit(RLIMIT_FSIZE, &limit);
                saver.save(saver.Line(500));
                return 0;
            });
            EXPECT_TRUE(killed ? code == 128 + SIGXFSZ : code == 0 || code == 98)
                << saver.name << " " << code;
            EXPECT_EQ(ReadFileBytes(saver.path), old) << saver.name;
            if (!killed) {
                EXPECT_EQ(Strays(saver.path), 0) << saver.name;
            }
        }
    }
}

// A writer killed at a random moment of its save loop leaves a file that is one
// of the versions it wrote: every line whole, none missing in between. The
// files are large enough that a save spends a good part of its time writing.
TEST_F(WholeFileSave, AWriterKilledAtAnyMomentLeavesTheOldOrTheNewFile) {
    constexpr int oldRounds = 2000;
    std::srand(12345);
    for (const TSaver& saver : Savers()) {
        for (int round = 0; round < 8; ++round) {
            Rounds(saver, oldRounds);
            const pid_t child = fork();
            if (child == 0) {
                for (int i = oldRounds;; ++i)
                    saver.save(saver.Line(i));
            }
            usleep(static_cast<useconds_t>(5000 + std::rand() % 40000));
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
            std::set<int> rounds;
            EXPECT_TRUE(Rounds(saver, ReadFileBytes(saver.path), rounds)) << saver.name;
            EXPECT_GE(int(rounds.size()), oldRounds) << saver.name << ": old lines are lost";
            EXPECT_TRUE(rounds.empty() || *rounds.rbegin() + 1 == int(rounds.size()))
                << saver.name << ": a line is missing in between";
        }
    }
}

// The program's commands that write a file whole, under the same limit.
TEST(WholeFileSaveCommands, ADiskThatFillsLeavesTheOldFile) {
    TTempFolder folder;
    folder.Write("config.txt", "SmtpHost=mail.example.org\nMailClient=Quill\n");
    struct TCase {
        const char* name;
        std::vector<std::string> args;
        std::string path;
        rlim_t limit;
    } cases[] = {
        {"make-config",
         {"make-config", folder / "config.txt", folder / "Config.cfg"},
         folder / "Config.cfg",
         512},
        {"make-sound",
         {"make-sound", folder / "chime.wav", "200", "880"},
         folder / "chime.wav",
         4096},
    };
    const std::string cli = BuiltProgram("vellumdesk-cli");
    for (const TCase& c : cases) {
        const std::string old = c.name + std::string(" before\n") + std::string(8000, 'o');
        TTempFolder::WriteTo(c.path, old);
        for (bool killed : {false, true}) {
            const int code = RunForked([&] {
                if (!killed) signal(SIGXFSZ, SIG_IGN);
                const rlimit limit{c.limit, c.limit};
                setrlimit(RLIMIT_FSIZE, &limit);
                std::vector<char*> argv{const_cast<char*>(cli.c_str())};
                for (const std::string& arg : c.args)
                    argv.push_back(const_cast<char*>(arg.c_str()));
                argv.push_back(nullptr);
                execv(cli.c_str(), argv.data());
                return 127;
            });
            EXPECT_EQ(code, killed ? 128 + SIGXFSZ : 1) << c.name;
            EXPECT_EQ(ReadFileBytes(c.path), old) << c.name;
            if (!killed) {
                EXPECT_EQ(WholeFileSave::Strays(c.path), 0) << c.name;
            }
        }
    }
}

} // namespace
