#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <regex>

#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

// README.md and every page of docs/.
std::vector<fs::path> Documents() {
    std::vector<fs::path> pages = {fs::path(VD_SOURCE_DIR) / "README.md"};
    for (const auto& entry : fs::directory_iterator(fs::path(VD_SOURCE_DIR) / "docs"))
        if (entry.path().extension() == ".md") pages.push_back(entry.path());
    return pages;
}

// The targets of [text](target) and of "[label]: target" lines, and every
// word in code marks that begins with ./ or ../: a path a reader will follow.
std::vector<std::string> References(const std::string& text) {
    static const std::regex patterns[] = {
        std::regex(R"(\]\(([^)\s]+)(\s+"[^"]*")?\))"),
        std::regex(R"((?:^|\n)\s*\[[^\]]+\]:\s*(\S+))"),
        std::regex(R"(`(\.\.?/[^`\s]*)`)"),
    };
    std::vector<std::string> found;
    for (const std::regex& pattern : patterns)
        for (std::sregex_iterator it(text.begin(), text.end(), pattern), end; it != end; ++it)
            found.push_back((*it)[1]);
    return found;
}

bool Outside(const std::string& target) {
    static const std::regex scheme("^[a-zA-Z][a-zA-Z0-9+.-]*:");
    return std::regex_search(target, scheme) || target.starts_with('#');
}

bool Within(const fs::path& path, const fs::path& root) {
    const auto [end, ignored] = std::mismatch(root.begin(), root.end(), path.begin(), path.end());
    return end == root.end();
}

TEST(DocsLinks, EveryRelativeLinkLeadsToAFileOfTheRepository) {
    const fs::path root = fs::weakly_canonical(VD_SOURCE_DIR);
    int checked = 0;
    for (const fs::path& page : Documents()) {
        for (const std::string& reference : References(ReadFileBytes(page.string()))) {
            if (Outside(reference)) continue;
            const std::string file = reference.substr(0, reference.find('#'));
            const fs::path target = fs::weakly_canonical(page.parent_path() / file);
            EXPECT_TRUE(Within(target, root)) << page.filename() << ": " << reference;
            EXPECT_TRUE(fs::exists(target)) << page.filename() << ": " << reference;
            ++checked;
        }
    }
    EXPECT_GT(checked, 0);
}

TEST(DocsLinks, TheReferenceFinderSeesEveryForm) {
    const struct {
        const char* text;
        std::vector<std::string> found;
    } cases[] = {
        {"see [the design](docs/ARCHITECTURE.md#layers).", {"docs/ARCHITECTURE.md#layers"}},
        {"[a](x.md \"title\") and [b](https://example.org/)", {"x.md", "https://example.org/"}},
        {"intro\n[ref]: ../outside/thing.md\n", {"../outside/thing.md"}},
        {"run `../elsewhere/tool` or `make test`", {"../elsewhere/tool"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(References(c.text), c.found) << c.text;
}

} // namespace
