#pragma once
// The 1024 bytes of Config.cfg, packed, as the suite's other programs write
// them. Texts are C strings that end at their first NUL byte, or at the end of
// their field.

#include <array>
#include <cstddef>
#include <string_view>

#include "foundation/AnsiString.h"

struct ConfigRecord {
    static constexpr std::size_t size = 1024;

    // Offset and width of each field the program reads.
    static constexpr std::size_t smtpBlock = 140; // SmtpHost, then the other three texts
    static constexpr std::size_t smtpHost = 140, smtpHostWidth = 32;
    static constexpr std::size_t smtpText2 = 172, smtpText2Width = 16;
    static constexpr std::size_t smtpText3 = 188, smtpText3Width = 32;
    static constexpr std::size_t smtpText4 = 220, smtpText4Width = 175;
    static constexpr std::size_t mailClient = 395, mailClientWidth = 57;
    static constexpr std::size_t stayOnTop = 452;
    static constexpr std::size_t sharedFolder = 462, sharedFolderWidth = 562;

    std::array<unsigned char, size> Bytes{};

    AnsiString Text(std::size_t offset, std::size_t width) const {
        const char* start = reinterpret_cast<const char*>(Bytes.data()) + offset;
        const std::string_view field(start, width);
        return AnsiString(field.substr(0, field.find('\0')));
    }
    AnsiString SmtpHost() const { return Text(smtpHost, smtpHostWidth); }
    AnsiString SmtpText2() const { return Text(smtpText2, smtpText2Width); }
    AnsiString SmtpText3() const { return Text(smtpText3, smtpText3Width); }
    AnsiString SmtpText4() const { return Text(smtpText4, smtpText4Width); }
    AnsiString MailClient() const { return Text(mailClient, mailClientWidth); }
    bool StayOnTop() const { return Bytes[stayOnTop] != 0; }
    AnsiString SharedFolder() const { return Text(sharedFolder, sharedFolderWidth); }
};
