// Alerts.ini, the named sounds: loaded into the sorted list the Filter
// Editor offers, each name looked up, a sound added and the file written
// back. An entry that was there must still be there. (A name that is there
// already is added again: the first entry of a name is the one it plays.)

#include "FuzzFolder.h"
#include "controls/ComboBox.h"
#include "foundation/FileDescriptor.h"
#include "foundation/Utils.h"
#include "settings/Globals.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const TFuzzFolder& folder = TFuzzFolder::Get();
    static TGlobals globals;
    static const AnsiString sound = folder.Write("Chime.wav", "RIFF");
    Globals = &globals;
    const std::string& shared = folder.Path().str();
    globals.Config = ConfigRecord{};
    std::copy(shared.begin(), shared.end(),
              globals.Config.Bytes.begin() + ConfigRecord::sharedFolder);
    const std::string_view original = FuzzBytes(data, size);
    folder.Write("Alerts.ini", original);

    TStringList list;
    globals.LoadAlerts(list);
    TComboBox combo(nullptr, "LMDcmbMailArrival");
    for (int i = 0; i < list.Count(); ++i)
        globals.FindAlert(list.GetName(i), list);
    globals.FillCombo(list.Count() > 0 ? list.GetName(0) : AnsiString(), combo, list);

    const AnsiString name = globals.AddAlert(sound, list);
    if (original.find('\0') != std::string_view::npos) {
        // The list would not hold the file whole: the file stays as it was.
        std::string now;
        FuzzCheck(name.IsEmpty(), "no entry is added to a file the list cannot hold");
        FuzzCheck(ReadWholeFile(globals.AlertsPath().c_str(), now) && now == original,
                  "a file the list cannot hold is left alone");
        return 0;
    }
    FuzzCheck(!name.IsEmpty(), "a sound that is there makes an entry");
    TStringList reloaded;
    globals.LoadAlerts(reloaded);
    for (const AnsiString& line : list)
        FuzzCheck(reloaded.IndexOf(line) >= 0, "no entry is lost");
    FuzzCheck(reloaded.IndexOf(name + "=" + sound) >= 0, "the new entry is in the file");
    return 0;
}
