#include "platform/MemoryRegistry.h"

#include <algorithm>
#include <cstring>

#include "foundation/CaseFold.h"

TRegistryFactory CreateRegistry = nullptr;

namespace {

// A path without its leading or trailing "\", folded, so that lookups ignore case.
std::string KeyOf(const AnsiString& path) {
    std::string_view p = path.view();
    while (!p.empty() && p.front() == '\\')
        p.remove_prefix(1);
    while (!p.empty() && p.back() == '\\')
        p.remove_suffix(1);
    return casefold::Lower(p);
}

} // namespace

TMemoryRegistry::TKey& TMemoryRegistry::MakeKey(const AnsiString& path) {
    const std::string key = KeyOf(path);
    if (auto found = keys.find(key); found != keys.end()) return found->second;
    if (!key.empty()) {
        // The parent learns the new subkey's name as it was written.
        std::string_view written = path.view();
        while (!written.empty() && written.back() == '\\')
            written.remove_suffix(1);
        const auto at = written.rfind('\\');
        const AnsiString leaf(at == std::string_view::npos ? written : written.substr(at + 1));
        const AnsiString parentPath(at == std::string_view::npos ? std::string_view()
                                                                 : written.substr(0, at));
        MakeKey(parentPath).subkeys.push_back(leaf);
    }
    return keys[key];
}

void TMemoryRegistry::AddKey(const AnsiString& path) {
    MakeKey(path);
}

void TMemoryRegistry::SetString(const AnsiString& path, const AnsiString& name,
                                const AnsiString& value, TRegDataType type) {
    MakeKey(path).values[casefold::Lower(name.view())] = {type, value.str()};
}

void TMemoryRegistry::SetInteger(const AnsiString& path, const AnsiString& name, int value) {
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    MakeKey(path).values[casefold::Lower(name.view())] = {rdInteger, bytes};
}

void TMemoryRegistry::SetBinary(const AnsiString& path, const AnsiString& name, std::string bytes) {
    MakeKey(path).values[casefold::Lower(name.view())] = {rdBinary, std::move(bytes)};
}

void TMemoryRegistry::SetUnknown(const AnsiString& path, const AnsiString& name,
                                 std::string bytes) {
    MakeKey(path).values[casefold::Lower(name.view())] = {rdUnknown, std::move(bytes)};
}

bool TMemoryRegistry::OpenKeyReadOnly(const AnsiString& path) {
    openKey = nullptr;
    if (rootKey != HKEY_LOCAL_MACHINE) return false;
    const auto found = keys.find(KeyOf(path));
    if (found == keys.end()) return false;
    openKey = &found->second;
    return true;
}

void TMemoryRegistry::GetKeyNames(TStringList& list) {
    list.Clear();
    if (!openKey) return;
    for (const AnsiString& name : openKey->subkeys)
        list.Add(name);
}

const TMemoryRegistry::TValue* TMemoryRegistry::Find(const AnsiString& name) const {
    if (!openKey) return nullptr;
    const auto found = openKey->values.find(casefold::Lower(name.view()));
    return found == openKey->values.end() ? nullptr : &found->second;
}

TRegDataType TMemoryRegistry::GetDataType(const AnsiString& name) {
    const TValue* value = Find(name);
    return value ? value->type : rdUnknown;
}

AnsiString TMemoryRegistry::ReadString(const AnsiString& name) {
    const TValue* value = Find(name);
    if (!value || (value->type != rdString && value->type != rdExpandString))
        throw ERegistryException("Invalid data type for '" + name.str() + "'");
    return AnsiString(value->bytes);
}

int TMemoryRegistry::ReadInteger(const AnsiString& name) {
    const TValue* value = Find(name);
    if (!value || value->type != rdInteger || value->bytes.size() != sizeof(int))
        throw ERegistryException("Invalid data type for '" + name.str() + "'");
    int number = 0;
    std::memcpy(&number, value->bytes.data(), sizeof number);
    return number;
}

int TMemoryRegistry::GetDataSize(const AnsiString& name) {
    const TValue* value = Find(name);
    return value ? static_cast<int>(value->bytes.size()) : -1;
}

int TMemoryRegistry::ReadBinaryData(const AnsiString& name, void* buffer, int size) {
    const TValue* value = Find(name);
    if (!value) throw ERegistryException("Invalid data type for '" + name.str() + "'");
    const int count = std::min(size, static_cast<int>(value->bytes.size()));
    if (count > 0) std::memcpy(buffer, value->bytes.data(), static_cast<std::size_t>(count));
    return count;
}
