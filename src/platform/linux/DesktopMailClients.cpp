#include "platform/linux/DesktopMailClients.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include "platform/MemoryRegistry.h"

namespace {

constexpr const char* baseKey = "Software\\Clients\\Mail";
constexpr const char* messageType = "message/rfc822";

// An entry whose command is empty or blank could start nothing; GIO itself
// leaves out one whose TryExec program is missing.
bool CanStart(GAppInfo* app) {
    const char* command = g_app_info_get_commandline(app);
    if (!command) return false;
    for (; *command; ++command)
        if (*command != ' ' && *command != '\t') return true;
    return false;
}

void AddClient(TMemoryRegistry& registry, GAppInfo* app) {
    const char* id = g_app_info_get_id(app);
    if (!id || !g_app_info_should_show(app) || !CanStart(app)) return;
    const AnsiString key = AnsiString(baseKey) + "\\" + id;
    registry.SetString(key, "", g_app_info_get_name(app));
    if (!G_IS_DESKTOP_APP_INFO(app)) return;
    if (const char* file = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(app)))
        registry.SetString(key + "\\shell\\open\\command", "", "\"" + AnsiString(file) + "\"");
}

} // namespace

std::unique_ptr<TRegistry> CreateDesktopRegistry() {
    auto registry = std::make_unique<TMemoryRegistry>();
    registry->AddKey(baseKey);
    GList* apps = g_app_info_get_all_for_type(messageType);
    for (GList* entry = apps; entry; entry = entry->next)
        AddClient(*registry, G_APP_INFO(entry->data));
    g_list_free_full(apps, g_object_unref);
    if (GAppInfo* chosen = g_app_info_get_default_for_type(messageType, FALSE)) {
        if (const char* id = g_app_info_get_id(chosen)) registry->SetString(baseKey, "", id);
        g_object_unref(chosen);
    }
    return registry;
}
