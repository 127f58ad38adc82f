// TGlobals: the Help buttons run the extension whose id is "SystemHelp".

#include "foundation/Utils.h"
#include "plugins/PlugIns.h"
#include "settings/Globals.h"

void TGlobals::RunSystemHelp() {
    const int line = ExtensionIds.IndexOfName("SystemHelp");
    if (line < 0 || !PlugIns) return;
    const AnsiString caption = ExtensionIds.GetValue("SystemHelp");
    if (PlugIns->ExecuteExtension(caption)) Utils->WriteLog("SystemHelp");
    PlugIns->ParamList.Clear();
}
