#pragma once
// Sound on the Linux desktop through libcanberra.
//
// Why libcanberra: it is the desktop's library for event sounds. It finds
// the sound server of the session (PulseAudio, or PipeWire's PulseAudio
// service; ALSA when there is none), reads WAV and Ogg files itself, and
// reports the end of a sound through a callback, which is what a player that
// must wait for the end needs. libsndfile + libpulse-simple would do the same
// with more code of ours, and only for PulseAudio.

#include <mutex>

#include "platform/Sound.h"

class TCanberraSound : public TSound {
public:
    // Plays path and waits for its end (ten minutes at the most, then the
    // sound is cut). Never raises.
    bool PlayFile(const AnsiString& path) override;

private:
    std::mutex mutex; // one sound at a time, as the old call did
};
