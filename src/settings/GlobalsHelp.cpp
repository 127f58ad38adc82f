#include "settings/Globals.h"

// The help extension is started through the plug-in catalogue, which is not
// built yet: until then a Help button does nothing.
void TGlobals::RunSystemHelp() {}
