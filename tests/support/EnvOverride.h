#pragma once
// Sets environment variables for the life of a test and puts back what was there.

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class TEnvOverride {
public:
    TEnvOverride() = default;
    TEnvOverride(const TEnvOverride&) = delete;
    TEnvOverride& operator=(const TEnvOverride&) = delete;
    ~TEnvOverride() {
        for (auto it = saved.rbegin(); it != saved.rend(); ++it) {
            if (it->second)
                setenv(it->first.c_str(), it->second->c_str(), 1);
            else
                unsetenv(it->first.c_str());
        }
    }
    // value nullptr removes the variable.
    void Set(const std::string& name, const char* value) {
        const char* old = std::getenv(name.c_str());
        saved.emplace_back(name, old ? std::optional<std::string>(old) : std::nullopt);
        if (value)
            setenv(name.c_str(), value, 1);
        else
            unsetenv(name.c_str());
    }

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> saved;
};
