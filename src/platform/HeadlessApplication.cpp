#include "platform/HeadlessApplication.h"

THeadlessApplication::THeadlessApplication() : start(std::chrono::steady_clock::now()) {}

void THeadlessApplication::ProcessMessages() {
    ++passes;
    // Only what was posted before this pass runs now; what those events post
    // waits for the next pass, as in a real message loop.
    std::deque<std::function<void()>> pending;
    {
        const std::lock_guard hold(queueLock);
        pending.swap(queue);
    }
    for (auto& event : pending)
        event();
}

void THeadlessApplication::WaitForEvents(std::uint32_t ms) {
    std::unique_lock hold(queueLock);
    posted.wait_for(hold, std::chrono::milliseconds(ms), [this] { return !queue.empty(); });
}

void THeadlessApplication::Post(std::function<void()> event) {
    {
        const std::lock_guard hold(queueLock);
        queue.push_back(std::move(event));
    }
    posted.notify_one();
}

bool THeadlessApplication::HasPendingEvents() const {
    const std::lock_guard hold(queueLock);
    return !queue.empty();
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
