#pragma once
// The message object of the SMTP component: what the forward dialog fills
// before each send. The texts go to the component's own header lines, the
// recipient list to the envelope, and the body list out as it is.

#include "foundation/AnsiString.h"
#include "foundation/StringList.h"

struct TPostMessage {
    AnsiString FromAddress; // the sender text, e.g. "Sam Reader <sam@example.org>"
    AnsiString Subject;
    AnsiString Date; // the program's time stamp, "mm.dd.yyyy.hh.nn.ss"
    TStringList ToAddress;
    TStringList Body;
    // Files to attach; nothing in the program adds to it, and it is emptied
    // before each send.
    TStringList Attachments;
};
