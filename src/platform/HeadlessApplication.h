#pragma once
// An application object without a screen: ProcessMessages runs the events
// posted so far, in order. Tests post a "click" that then arrives in the
// middle of a wait or a scan, as it would from a person. Post may be called
// from any thread; a wait wakes for it.

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <vector>

#include "platform/Application.h"

class THeadlessApplication : public TApplication {
public:
    THeadlessApplication();
    void ProcessMessages() override;
    void WaitForEvents(std::uint32_t ms) override;
    bool Terminated() const override { return terminated; }
    void Terminate() override { terminated = true; }
    std::uint32_t GetTickCount() const override;
    void Post(std::function<void()> event) override;

    // A modal loop: ModalLoop acts on the shown form (a test, a script) and
    // closes it; without one the form is closed at once by its title bar.
    void RunModal(TForm& form) override;
    std::function<void(TForm&)> ModalLoop;
    // No screen: the window-order calls are only recorded, by name.
    void NormalizeAllTopMosts() override { WindowOrderCalls.emplace_back("NormalizeAllTopMosts"); }
    void RestoreTopMosts() override { WindowOrderCalls.emplace_back("RestoreTopMosts"); }
    void BringToFront() override { WindowOrderCalls.emplace_back("BringToFront"); }
    std::vector<std::string> WindowOrderCalls;

    int ProcessMessagesCalls() const { return passes; }
    bool HasPendingEvents() const;

private:
    mutable std::mutex queueLock;
    std::condition_variable posted;
    std::deque<std::function<void()>> queue;
    std::chrono::steady_clock::time_point start;
    bool terminated = false;
    int passes = 0;
};
