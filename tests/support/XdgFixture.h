#pragma once
// A desktop of our own: the fixture tree of desktop entries and mimeapps.list
// copied to a folder, its entries pointed at the argument recorder, its
// mimeinfo.cache written by the desktop's tool, and the XDG variables pointed
// at it for the life of the object.

#include <string>

#include "support/EnvOverride.h"

class TXdgFixture {
public:
    // record: the file the recorder writes when a client is started.
    TXdgFixture(const std::string& folder, const std::string& record);
    bool Ready() const { return ready; }

private:
    TEnvOverride env;
    bool ready = false;
};
