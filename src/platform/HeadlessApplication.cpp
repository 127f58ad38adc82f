#include "platform/HeadlessApplication.h"

THeadlessApplication::THeadlessApplication() : start(std::chrono::steady_clock::now()) {}

void THeadlessApplication::ProcessMessages() {
    ++passes;
    // Only what was posted before this pass runs now; what those events post
    // waits for the next pass, as in a real message loop.
    auto pending = std::move(queue);
    queue.clear();
    for (auto& event : pending)
        event();
}

std::uint32_t THeadlessApplication::GetTickCount() const {
    const auto elapsed = std::chrono::steady_clock::now() - start;
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(elapsed).count());
}

void THeadlessApplication::RunModal(TForm& form) {
    if (ModalLoop)
        ModalLoop(form);
    else
        form.WindowClose();
}
