// A plug-in's manifest of name=value lines, found in the PlugIns folder of
// the data folder: the catalogue reads its caption and menu id, a start
// reads the program, its action and its parameters.

#include <sys/stat.h>

#include "FuzzFolder.h"
#include "foundation/Utils.h"
#include "plugins/PlugIns.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const TFuzzFolder& folder = TFuzzFolder::Get();
    static TPlugIns plugIns;
    static const int made = ::mkdir((folder.Path() + "/PlugIns").c_str(), 0700);
    FuzzCheck(made == 0, "the PlugIns folder is made");
    plugIns.SetDataFolder(folder.Path());
    const AnsiString path = folder.Write("PlugIns/Sample.ini", FuzzBytes(data, size));

    TStringList ids;
    // An empty manifest describes nothing and is passed over.
    const int listed = size > 0 ? 1 : 0;
    FuzzCheck(plugIns.LoadPlugIns("", ids) == listed, "the one manifest is listed");
    if (listed == 0) return 0;
    for (std::uint16_t field = TPlugIns::mfCaption; field <= TPlugIns::mfExecute; ++field)
        plugIns.GetManifestField(field, field % 2 ? path : AnsiString());
    plugIns.GetManifestParams(path);
    const AnsiString caption = plugIns.GetManifestField(TPlugIns::mfCaption, path);
    FuzzCheck(plugIns.PlugInList->GetName(0) ==
                      (caption.IsEmpty() ? AnsiString("Sample") : caption) ||
                  caption.Pos("=") > 0,
              "the catalogue lists the manifest's caption");
    return 0;
}
