#pragma once
// A sound service that tells what it plays before it plays it: a scripted
// session reports every sound, which still really plays when it can.

#include <functional>

#include "platform/Sound.h"

class TReportingSound : public TSound {
public:
    explicit TReportingSound(TSound* real) : real(real) {}

    std::function<void(const AnsiString& path)> OnPlay;

    bool PlayFile(const AnsiString& path) override {
        if (OnPlay) OnPlay(path);
        return real && real->PlayFile(path);
    }

private:
    TSound* real;
};
