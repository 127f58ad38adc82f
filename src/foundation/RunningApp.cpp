#include "foundation/RunningApp.h"

TRunningApp::TRunningApp() : previous(running) {
    running = this;
}

// Loops end in the reverse order of their start; one that ends out of turn
// only takes itself out of the chain.
TRunningApp::~TRunningApp() {
    if (running == this) {
        running = previous;
        return;
    }
    for (TRunningApp* loop = running; loop; loop = loop->previous) {
        if (loop->previous == this) {
            loop->previous = previous;
            return;
        }
    }
}
