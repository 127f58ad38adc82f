#include "platform/linux/CanberraSound.h"

#include <canberra.h>
#include <chrono>
#include <condition_variable>
#include <memory>

namespace {

// The end of the sound, as the callback on canberra's own thread reports it.
struct TPlayState {
    std::mutex mutex;
    std::condition_variable ended;
    bool done = false;
    int error = CA_SUCCESS;
};

void OnFinished(ca_context*, std::uint32_t, int error, void* data) {
    auto* state = static_cast<TPlayState*>(data);
    std::lock_guard<std::mutex> guard(state->mutex);
    state->done = true;
    state->error = error;
    state->ended.notify_all();
}

struct TContextDeleter {
    void operator()(ca_context* context) const { ca_context_destroy(context); }
};
struct TPropListDeleter {
    void operator()(ca_proplist* list) const { ca_proplist_destroy(list); }
};

constexpr std::uint32_t playId = 1;
constexpr auto longestSound = std::chrono::minutes(10);

} // namespace

// A context per sound: it connects to the sound server the session has now,
// so a server that restarted since the last sound is found again.
bool TCanberraSound::PlayFile(const AnsiString& path) {
    std::lock_guard<std::mutex> one(mutex);
    if (path.IsEmpty()) return false;
    TPlayState state; // declared before the context: destroying that ends all callbacks
    ca_context* rawContext = nullptr;
    if (ca_context_create(&rawContext) != CA_SUCCESS) return false;
    std::unique_ptr<ca_context, TContextDeleter> context(rawContext);
    ca_context_change_props(rawContext, CA_PROP_APPLICATION_NAME, "Vellumdesk",
                            CA_PROP_APPLICATION_ID, "vellumdesk", nullptr);
    ca_proplist* rawProps = nullptr;
    if (ca_proplist_create(&rawProps) != CA_SUCCESS) return false;
    std::unique_ptr<ca_proplist, TPropListDeleter> props(rawProps);
    ca_proplist_sets(rawProps, CA_PROP_MEDIA_FILENAME, path.c_str());
    ca_proplist_sets(rawProps, CA_PROP_MEDIA_ROLE, "event");
    ca_proplist_sets(rawProps, CA_PROP_CANBERRA_CACHE_CONTROL, "never");

    if (ca_context_play_full(rawContext, playId, rawProps, OnFinished, &state) != CA_SUCCESS)
        return false;
    std::unique_lock<std::mutex> wait(state.mutex);
    if (state.ended.wait_for(wait, longestSound, [&state] { return state.done; }))
        return state.error == CA_SUCCESS;
    wait.unlock();
    ca_context_cancel(rawContext, playId);
    return false;
}
