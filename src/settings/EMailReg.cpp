#include "settings/EMailReg.h"

#include <vector>

TEMailReg::TEMailReg() {
    if (CreateRegistry) Registry = CreateRegistry();
}

int TEMailReg::GetMailClients(TStringList& list) {
    if (!Registry) return list.Count();
    Registry->SetRootKey(HKEY_LOCAL_MACHINE);
    if (Registry->OpenKeyReadOnly(baseKey)) {
        Registry->GetKeyNames(list);
        list.Insert(0, "default=" + ReadRegValue(""));
        Registry->CloseKey();
        for (int i = 1; i < list.Count(); ++i) {
            const AnsiString name = list[i];
            if (!Registry->OpenKeyReadOnly(AnsiString(baseKey) + "\\" + name)) continue;
            list.PutStrings(i, name + "=" + ReadRegValue(""));
            Registry->CloseKey();
        }
    }
    Registry->CloseKey();
    return list.Count();
}

AnsiString TEMailReg::GetClientCommand(const AnsiString& client) {
    AnsiString command;
    if (!Registry) return command;
    Registry->SetRootKey(HKEY_LOCAL_MACHINE);
    if (!Registry->OpenKeyReadOnly(AnsiString(baseKey) + "\\" + client + "\\shell\\open\\command"))
        return command;
    command = ReadRegValue("");
    Registry->CloseKey();
    return command;
}

AnsiString TEMailReg::ReadRegValue(const AnsiString& name) {
    try {
        switch (Registry->GetDataType(name)) {
        case rdString:
        case rdExpandString:
            return Registry->ReadString(name);
        case rdInteger: {
            AnsiString number;
            return number.sprintf("%d", Registry->ReadInteger(name));
        }
        case rdBinary: {
            const int size = Registry->GetDataSize(name);
            if (size <= 0) return "";
            std::vector<char> bytes(static_cast<std::size_t>(size));
            const int got = Registry->ReadBinaryData(name, bytes.data(), size);
            const std::string_view text(bytes.data(), static_cast<std::size_t>(got));
            return AnsiString(text.substr(0, text.find('\0')));
        }
        default:
            return "";
        }
    } catch (const Exception&) {
        return "";
    }
}
