// Config.cfg as the window's start reads it: the first 1024 bytes of any
// file, whatever its length, and the texts the program takes from them.

#include <cstring>

#include "FuzzFolder.h"
#include "foundation/Utils.h"
#include "rules/RuleLists.h"
#include "settings/Globals.h"

namespace {

void CheckText(const AnsiString& text, std::size_t width) {
    FuzzCheck(text.str().size() <= width, "a text stays inside its field");
    FuzzCheck(text.view().find('\0') == std::string_view::npos, "a text ends at its NUL");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const TFuzzFolder& folder = TFuzzFolder::Get();
    static TGlobals globals;
    Globals = &globals;
    globals.DataFolder = folder.Path();
    globals.Config = ConfigRecord{};
    folder.Write("Config.cfg", FuzzBytes(data, size));
    FuzzCheck(globals.LoadConfig(), "a readable Config.cfg loads");
    const ConfigRecord& config = globals.Config;
    FuzzCheck(std::memcmp(config.Bytes.data(), data, std::min(size, ConfigRecord::size)) == 0,
              "the record holds the file's first bytes");
    CheckText(config.SmtpHost(), ConfigRecord::smtpHostWidth);
    CheckText(config.SmtpText2(), ConfigRecord::smtpText2Width);
    CheckText(config.SmtpText3(), ConfigRecord::smtpText3Width);
    CheckText(config.SmtpText4(), ConfigRecord::smtpText4Width);
    CheckText(config.MailClient(), ConfigRecord::mailClientWidth);
    CheckText(config.SharedFolder(), ConfigRecord::sharedFolderWidth);
    config.StayOnTop();
    for (const bool reject : {false, true})
        for (const bool master : {false, true})
            RuleListPath(FindRuleList(reject, master), config.SharedFolder(), folder.Path());
    globals.AlertsPath();
    return 0;
}
