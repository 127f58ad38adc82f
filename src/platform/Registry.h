#pragma once
// A read-only view of a registry of keys and values: the place where the mail
// clients of this desktop are listed. Paths use "\" between keys and may
// begin with one; names compare without regard to case.

#include <cstdint>
#include <memory>
#include <string>

#include "foundation/AnsiString.h"
#include "foundation/StringList.h"

enum TRegDataType { rdUnknown = 0, rdString = 1, rdExpandString = 2, rdInteger = 3, rdBinary = 4 };

constexpr std::uint32_t HKEY_LOCAL_MACHINE = 0x80000002u;

class TRegistry {
public:
    virtual ~TRegistry() = default;

    virtual void SetRootKey(std::uint32_t root) = 0;
    // Opens a key for reading; a key open before is closed. True on success.
    virtual bool OpenKeyReadOnly(const AnsiString& path) = 0;
    virtual void CloseKey() = 0;
    // Replaces list by the names of the open key's subkeys.
    virtual void GetKeyNames(TStringList& list) = 0;
    // An empty name means the key's unnamed value.
    virtual TRegDataType GetDataType(const AnsiString& name) = 0;
    // These raise ERegistryException for a missing value or a wrong type.
    virtual AnsiString ReadString(const AnsiString& name) = 0;
    virtual int ReadInteger(const AnsiString& name) = 0;
    virtual int GetDataSize(const AnsiString& name) = 0;
    virtual int ReadBinaryData(const AnsiString& name, void* buffer, int size) = 0;
};

class ERegistryException : public Exception {
public:
    using Exception::Exception;
};

// Makes the registry the program reads: the desktop's mail clients in the
// program, an in-memory tree in tests. Set by main() or by a test.
using TRegistryFactory = std::unique_ptr<TRegistry> (*)();
extern TRegistryFactory CreateRegistry;
