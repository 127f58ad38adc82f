#pragma once
// TEMailReg: the mail clients of the machine as the registry lists them under
// Software\Clients\Mail, and the command line of one of them. Read only.

#include <memory>

#include "foundation/StringList.h"
#include "platform/Registry.h"

class TEMailReg {
public:
    TEMailReg();

    // Fills list with "default=<subkey>" and one "<subkey>=<display name>" per
    // client; unchanged when the base key cannot be opened. Returns its count.
    int GetMailClients(TStringList& list);
    // The client's command line as the registry holds it; empty if none.
    AnsiString GetClientCommand(const AnsiString& client);
    // A value of the open key as text; the empty name is the unnamed value.
    AnsiString ReadRegValue(const AnsiString& name);

    static constexpr const char* baseKey = "\\Software\\Clients\\Mail";

private:
    std::unique_ptr<TRegistry> Registry;
};
