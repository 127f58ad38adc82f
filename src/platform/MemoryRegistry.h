#pragma once
// A registry held in memory: a tree of keys with typed values, in the order
// they were added. Tests fill it by hand; the desktop's mail-client registry
// fills it from the applications this desktop knows.

#include <map>
#include <vector>

#include "platform/Registry.h"

class TMemoryRegistry : public TRegistry {
public:
    // Building the tree. Paths are full key paths below the root, "\" between keys.
    void AddKey(const AnsiString& path);
    void SetString(const AnsiString& path, const AnsiString& name, const AnsiString& value,
                   TRegDataType type = rdString);
    void SetInteger(const AnsiString& path, const AnsiString& name, int value);
    void SetBinary(const AnsiString& path, const AnsiString& name, std::string bytes);
    void SetUnknown(const AnsiString& path, const AnsiString& name, std::string bytes);

    void SetRootKey(std::uint32_t root) override { rootKey = root; }
    bool OpenKeyReadOnly(const AnsiString& path) override;
    void CloseKey() override { openKey = nullptr; }
    void GetKeyNames(TStringList& list) override;
    TRegDataType GetDataType(const AnsiString& name) override;
    AnsiString ReadString(const AnsiString& name) override;
    int ReadInteger(const AnsiString& name) override;
    int GetDataSize(const AnsiString& name) override;
    int ReadBinaryData(const AnsiString& name, void* buffer, int size) override;

private:
    struct TValue {
        TRegDataType type = rdUnknown;
        std::string bytes;
    };
    struct TKey {
        std::vector<AnsiString> subkeys;      // in the order they were added
        std::map<std::string, TValue> values; // by folded name
    };
    TKey& MakeKey(const AnsiString& path);
    const TValue* Find(const AnsiString& name) const;

    std::map<std::string, TKey> keys; // by folded full path
    std::uint32_t rootKey = HKEY_LOCAL_MACHINE;
    const TKey* openKey = nullptr;
};
