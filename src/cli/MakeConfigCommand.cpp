// vellumdesk-cli make-config: writes a Config.cfg from a readable description
// of name=value lines (blank lines and lines beginning with "#" are skipped),
// with every text at the offset the program reads it from. The suite's own
// programs write this file; this is for demos and tests.

#include <cstdio>
#include <string_view>

#include "cli/CliCommand.h"
#include "cli/CliHelp.h"
#include "foundation/AtomicFile.h"
#include "foundation/StringList.h"
#include "settings/ConfigRecord.h"

namespace {

struct TField {
    const char* name;
    std::size_t offset, width;
};

constexpr TField fields[] = {
    {"SmtpHost", ConfigRecord::smtpHost, ConfigRecord::smtpHostWidth},
    {"SmtpText2", ConfigRecord::smtpText2, ConfigRecord::smtpText2Width},
    {"SmtpText3", ConfigRecord::smtpText3, ConfigRecord::smtpText3Width},
    {"SmtpText4", ConfigRecord::smtpText4, ConfigRecord::smtpText4Width},
    {"MailClient", ConfigRecord::mailClient, ConfigRecord::mailClientWidth},
    {"SharedFolder", ConfigRecord::sharedFolder, ConfigRecord::sharedFolderWidth},
};

// A text longer than its field keeps room for its closing NUL.
bool Put(ConfigRecord& record, const TField& field, std::string_view value) {
    if (value.size() >= field.width) return false;
    for (std::size_t i = 0; i < value.size(); ++i)
        record.Bytes[field.offset + i] = static_cast<unsigned char>(value[i]);
    return true;
}

bool Apply(ConfigRecord& record, const AnsiString& name, const AnsiString& value) {
    if (name == "StayOnTop") {
        record.Bytes[ConfigRecord::stayOnTop] = value.ToIntDef(0) != 0;
        return true;
    }
    for (const TField& field : fields)
        if (name == field.name) return Put(record, field, value.view());
    return false;
}

int RunMakeConfig(const std::vector<std::string>& args) {
    if (args.size() != 2) return CliUsageError("make-config");
    TStringList description;
    try {
        description.LoadFromFile(AnsiString(args[0]));
    } catch (const Exception&) {
        std::fprintf(stderr, "make-config: cannot read %s\n", args[0].c_str());
        return 1;
    }
    ConfigRecord record;
    for (int i = 0; i < description.Count(); ++i) {
        const AnsiString& line = description[i];
        if (line.Trim().IsEmpty() || line[1] == '#') continue;
        const AnsiString name = description.GetName(i);
        if (!Apply(record, name, line.SubString(name.Length() + 2, line.Length()))) {
            std::fprintf(stderr, "make-config: line %d: unknown name or text too long: %s\n", i + 1,
                         line.c_str());
            return 1;
        }
    }
    // Replaced whole, as every file the program writes: never half.
    try {
        SaveFileAtomically(AnsiString(args[1]),
                           std::string_view(reinterpret_cast<const char*>(record.Bytes.data()),
                                            record.Bytes.size()));
    } catch (const Exception& e) {
        std::fprintf(stderr, "make-config: %s\n", e.what());
        return 1;
    }
    return 0;
}

const TCliCommand makeConfigCommand("make-config", RunMakeConfig);

} // namespace
