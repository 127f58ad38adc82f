#pragma once
// The desktop program's own options, --help and --version, answered before
// any window or lock exists, so they work without a display and while another
// instance runs. Qt's options (-platform NAME, ...) pass on to Qt.

// -1: go on and start the program; otherwise the exit status to end with.
int HandleCommandLine(int argc, char** argv);
