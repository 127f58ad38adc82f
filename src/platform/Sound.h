#pragma once
// The desktop's sound: plays a sound file to its end. The Filter Editor
// auditions an alert with it, and waits while it plays.

#include "foundation/AnsiString.h"

class TSound {
public:
    virtual ~TSound() = default;
    // Returns once the sound has ended. False when nothing played (no sound
    // server, a missing file, a file that is no sound); that is no error the
    // program reports.
    virtual bool PlayFile(const AnsiString& path) = 0;
};

// The one sound service of the process, or null for silence. Set by main()
// or by a test.
extern TSound* Sound;
