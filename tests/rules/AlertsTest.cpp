#include <filesystem>
#include <sys/stat.h>

#include "RulesFixture.h"
#include "controls/ComboBox.h"

namespace {

namespace fs = std::filesystem;

class Alerts : public RulesFixture {
protected:
    std::string AlertsFile() const { return shared + "/Alerts.ini"; }
    std::string Sound(const std::string& name) { return folder.Write("sounds/" + name, "RIFF"); }
};

TEST_F(Alerts, AFirstLoadMakesTheFileWithTheLineOfNoSound) {
    TStringList list;
    EXPECT_TRUE(globals.LoadAlerts(list));
    EXPECT_EQ(list.GetText(), "~NONE~=~none~\r\n");
    EXPECT_EQ(ReadFileBytes(AlertsFile()), "~NONE~=~none~\r\n");
    EXPECT_TRUE(list.Sorted());
}

TEST_F(Alerts, ALoadSortsDropsRepeatsAndEmptyLinesAndTheNextSaveWritesThatForm) {
    const char* before =
        "door bell=/s/d.wav\r\n\r\nZIP=/s/z.wav\r\n~NONE~=~none~\r\nDOOR BELL=/S/D.WAV\r\n"
        "0ABC=/s/0.wav\r\n";
    TTempFolder::WriteTo(AlertsFile(), before);
    TStringList list;
    ASSERT_TRUE(globals.LoadAlerts(list));
    EXPECT_EQ(list.GetText(),
              "~NONE~=~none~\r\n0ABC=/s/0.wav\r\ndoor bell=/s/d.wav\r\nZIP=/s/z.wav\r\n");
    EXPECT_EQ(ReadFileBytes(AlertsFile()), before); // a load writes nothing
    ASSERT_TRUE(globals.SaveAlerts(list));
    EXPECT_EQ(ReadFileBytes(AlertsFile()), list.GetText().str());
}

TEST_F(Alerts, FindAlertLooksUpNamesAndPaths) {
    const std::string bell = Sound("Door Bell.wav");
    TStringList list;
    list.SetSorted(true);
    list.SetText("~NONE~=~none~\r\nDOOR BELL=" + bell + "\r\nA=B=/odd\r\n");
    struct Case {
        std::string name, found;
    } cases[] = {
        {"door bell", bell}, {"DOOR BELL", bell},
        {bell, bell},        {"~NONE~", ""},
        {"~none~", ""},      {"nothing", ""},
        {"A", "B=/odd"},     {folder / "sounds/missing.wav", ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(globals.FindAlert(AnsiString(c.name), list), c.found) << c.name;
}

TEST_F(Alerts, AddAlertNamesAFileAfterItsStem) {
    struct Case {
        std::string file; // under sounds/, made unless it begins with "-"
        const char* name;
    } cases[] = {
        {"Door Bell.wav", "DOOR BELL"},
        {"LOUD.WAV", "LOUD"},
        {"a.b.c.wav", "A.B"},
        {"a.b.wav", "A"},
        {"x.wave.txt", "X"}, // only the presence of ".wav" counts
        {"key=value.wav", "KEY_VALUE"},
        {"tune.ogg", ""},
        {"-gone.wav", ""},
    };
    for (const Case& c : cases) {
        const bool make = c.file[0] != '-';
        const std::string path = make ? Sound(c.file) : folder / ("sounds/" + c.file.substr(1));
        TStringList list;
        EXPECT_EQ(globals.AddAlert(AnsiString(path), list), c.name) << c.file;
        if (*c.name) {
            EXPECT_EQ(list.GetValue(c.name), path) << c.file;
            EXPECT_EQ(globals.FindAlert(c.name, list), path) << c.file;
        }
    }
    TStringList reread;
    ASSERT_TRUE(globals.LoadAlerts(reread));
    EXPECT_EQ(reread.Count(), 7); // the line of no sound and six sounds
    EXPECT_EQ(globals.AddAlert("", reread), "");
}

TEST_F(Alerts, ChoosingTheSameFileTwiceAddsOneLine) {
    const std::string bell = Sound("bell.wav");
    TStringList list;
    EXPECT_EQ(globals.AddAlert(AnsiString(bell), list), "BELL");
    EXPECT_EQ(globals.AddAlert(AnsiString(bell), list), "BELL");
    EXPECT_EQ(ReadFileBytes(AlertsFile()), "~NONE~=~none~\r\nBELL=" + bell + "\r\n");
}

TEST_F(Alerts, AnAlertsFileThatCannotBeReadOrWrittenIsLeftAloneAndLogged) {
    // A folder in its place: not read, not replaced.
    fs::create_directory(AlertsFile());
    TStringList list;
    EXPECT_FALSE(globals.LoadAlerts(list));
    EXPECT_EQ(list.GetText(), "~NONE~=~none~\r\n");
    EXPECT_EQ(globals.AddAlert(AnsiString(Sound("x.wav")), list), "");
    EXPECT_TRUE(fs::is_directory(AlertsFile()));
    EXPECT_NE(Log().find("Alert file missing: " + AlertsFile()), std::string::npos);

    // A shared folder that does not exist: nothing can be made or saved.
    SetSharedFolder(globals, folder / "no-such-folder");
    TStringList other;
    EXPECT_FALSE(globals.LoadAlerts(other));
    EXPECT_EQ(other.GetText(), "~NONE~=~none~\r\n");
    EXPECT_FALSE(globals.SaveAlerts(other));
    EXPECT_NE(Log().find("Can' save alert file " + (folder / "no-such-folder/Alerts.ini")),
              std::string::npos);
}

TEST_F(Alerts, FillComboSelectsByNameOrValueAndElseTheFirstLine) {
    TStringList list;
    list.SetSorted(true);
    list.SetText("~NONE~=~none~\r\nBELL=/s/Bell.wav\r\nCHIME=/s/chime.wav\r\n");
    struct Case {
        const char* current;
        int index;
    } cases[] = {{"", 0},
                 {"chime", 2},
                 {"BELL", 1},
                 {"/s/Bell.wav", 1},
                 {"/s/chime.wav", 2},
                 {"/S/CHIME.WAV", 2},
                 {"nothing", 0}};
    TComboBox combo(nullptr, "LMDcmbMailArrival");
    for (const Case& c : cases) {
        globals.FillCombo(c.current, combo, list);
        EXPECT_EQ(combo.Items().GetText(), "~NONE~\r\nBELL\r\nCHIME\r\n");
        EXPECT_EQ(combo.ItemIndex(), c.index) << c.current;
        EXPECT_EQ(combo.Text(), combo.Items()[c.index]) << c.current;
    }
    TStringList empty;
    globals.FillCombo("x", combo, empty);
    EXPECT_EQ(combo.Items().Count(), 0);
    EXPECT_EQ(combo.Text(), "");
}

} // namespace
