#pragma once
// TSMTPFunc: sends one saved message over SMTP, whole, its own header lines
// included. The head is cut off the body list and handed to the component as
// extra header lines when the send starts; the user's note goes where the
// head ended. Every event of the component passes one gate (Report) that
// decides by level what reaches the status control and the log.

#include <cstdint>
#include <memory>

#include "foundation/AnsiString.h"
#include "foundation/StringList.h"
#include "platform/SmtpClient.h"

class TControl;

class TSMTPFunc {
public:
    // levelWord: the level word in force; null means the object's own, 0.
    explicit TSMTPFunc(std::uint16_t* levelWord = nullptr);
    ~TSMTPFunc();
    TSMTPFunc(const TSMTPFunc&) = delete;
    TSMTPFunc& operator=(const TSMTPFunc&) = delete;

    // block: the SMTP block of the settings record (host at 0, the other
    // three texts at 32, 48 and 80). True only if a connection was made, the
    // mail was handed over and LastResult is 0 afterwards.
    bool SendPost(const unsigned char* block, const TStringList& note);
    // The gate: formats the text into Message; shows and logs it if the
    // level word lets it through. The empty string if anything failed.
    AnsiString Report(std::uint16_t level, const char* format, ...)
        __attribute__((format(printf, 3, 4)));

    static constexpr std::size_t messageSize = 514;

    std::uint16_t LastResult = 0;
    char Message[messageSize] = {};
    std::unique_ptr<TSmtpClient> Smtp;
    int Port = 25;
    std::uint16_t OwnLevel = 0;
    TStringList HeaderLines;
    std::uint16_t* Level = nullptr;
    TPostMessage* Post = nullptr;
    TControl* StatusControl = nullptr;

private:
    void AssignEvents();
    void AssignFailureEvents();
    void AssignProgressEvents();
    void SplitHead();
};

extern TSMTPFunc* SMTPFunc;
