// The search engine against the plain reading of the rules: split the text
// into lines as the list class does, fold both sides with LowerCase, take the
// first position of the text in each line.

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "foundation/AnsiString.h"
#include "foundation/CaseFold.h"
#include "foundation/StringList.h"
#include "search/MessageSearch.h"

namespace {

std::vector<TLineHit> Reference(std::string_view text, std::string_view needle,
                                bool caseSensitive) {
    std::vector<TLineHit> hits;
    const std::string folded = caseSensitive ? std::string(needle) : casefold::Lower(needle);
    std::int64_t index = 0;
    SplitLines(text, [&](std::string_view line) {
        const std::string subject = caseSensitive ? std::string(line) : casefold::Lower(line);
        if (const int at = text::Pos(subject, folded); at > 0) hits.push_back({index, at});
        ++index;
    });
    return hits;
}

std::vector<TLineHit> Engine(std::string_view text, std::string_view needle, bool caseSensitive,
                             std::size_t block) {
    const TSearchMatcher matcher(needle, caseSensitive);
    TMessageSearch search(matcher, block);
    std::vector<TLineHit> hits;
    search.SearchText(text, hits);
    return hits;
}

std::string Describe(std::string_view text, std::string_view needle, bool caseSensitive,
                     std::size_t block) {
    std::string out = "needle \"";
    for (const unsigned char c : needle)
        out += c >= 0x20 && c < 0x7F ? std::string(1, static_cast<char>(c))
                                     : "\\x" + std::to_string(c);
    out += caseSensitive ? "\" case" : "\" nocase";
    out += " block " + std::to_string(block) + " text size " + std::to_string(text.size());
    return out;
}

void ExpectSame(std::string_view text, std::string_view needle) {
    for (const bool caseSensitive : {true, false}) {
        const auto expected = Reference(text, needle, caseSensitive);
        for (const std::size_t block : {1u, 2u, 3u, 5u, 17u, 64u, 1u << 20}) {
            ASSERT_EQ(Engine(text, needle, caseSensitive, block), expected)
                << Describe(text, needle, caseSensitive, block);
        }
    }
}

TEST(SearchMatcher, FindsTheFirstMatchOfEachLineAsTheLineRulesSplitThem) {
    struct Case {
        const char* name;
        std::string text, needle;
        bool caseSensitive;
        std::vector<TLineHit> hits;
    };
    const std::vector<Case> cases = {
        {"two in a line: one hit, the first", "cat cat\r\ndog", "cat", true, {{0, 1}}},
        {"lone CR ends a line", "a\rb cat\rc", "cat", true, {{1, 3}}},
        {"lone LF ends a line", "a\nb\ncat", "cat", true, {{2, 1}}},
        {"CR CR LF is two line ends", "a\r\r\ncat", "cat", true, {{2, 1}}},
        {"no final line end", "x\r\nend cat", "cat", true, {{1, 5}}},
        {"the text ends at a NUL", std::string("cat\r\nx\0cat", 10), "cat", true, {{0, 1}}},
        {"empty text matches nothing", "cat\r\n", "", true, {}},
        {"a text with a line end matches nothing", "a\r\nb", "a\r\nb", true, {}},
        {"case matters when asked", "Cat\r\ncat", "cat", true, {{1, 1}}},
        {"ASCII folds", "a CAT\r\n", "cAt", false, {{0, 3}}},
        {"UTF-8 letters fold", "x \xC3\x89t\xC3\xA9", "\xC3\xA9T\xC3\x89", false, {{0, 3}}},
        {"Windows-1252 letters fold", "x \xC9t\xE9", "\xE9T\xC9", false, {{0, 3}}},
        {"a UTF-8 letter is no Windows-1252 letter", "\xC3\x89", "\xE9", false, {}},
        {"blanks of a whole word",
         "cat sat\r\na cat sat\r\na cat\r\na\tcat sat",
         " cat ",
         true,
         {{1, 2}}},
        {"two blanks", "a  b\r\nab", "  ", true, {{0, 2}}},
        {"a line index past 9999", std::string(12345, '\n') + "cat", "cat", true, {{12345, 1}}},
    };
    for (const auto& c : cases) {
        for (const std::size_t block : {1u, 4u, 1u << 20})
            EXPECT_EQ(Engine(c.text, c.needle, c.caseSensitive, block), c.hits)
                << c.name << " block " << block;
        EXPECT_EQ(Reference(c.text, c.needle, c.caseSensitive), c.hits) << c.name;
    }
}

// Pieces that stress the folding and the line rules: ASCII of both cases,
// UTF-8 letters and their partners, Windows-1252 letters, stray continuation
// and lead bytes, the three line ends and now and then a NUL.
const std::vector<std::string> kPieces = {"a",        "A",
                                          "b",        "B",
                                          "t",        " ",
                                          " ",        "\r\n",
                                          "\n",       "\r",
                                          "\xC3\xA9", "\xC3\x89",
                                          "\xC3",     "\xA9",
                                          "\x89",     "\xC9",
                                          "\xE9",     "\x8A",
                                          "\x9A",     "\x9F",
                                          "\xFF",     "\xC5\xB8",
                                          "\xC3\xBF", "\xC4\x80",
                                          "\xC4\x81", "\xD0\x90",
                                          "\xD0\xB0", "\xE2\x82\xAC",
                                          "\x80",     "\xF0\x9F\x98\x80",
                                          "\xC3\x9F", "ss",
                                          "=",        "-"};

std::string Generate(std::mt19937& rng, std::size_t pieces, bool allowNul) {
    std::uniform_int_distribution<std::size_t> pick(0, kPieces.size() - 1);
    std::uniform_int_distribution<int> nul(0, 400);
    std::string out;
    for (std::size_t i = 0; i < pieces; ++i) {
        out += kPieces[pick(rng)];
        if (allowNul && nul(rng) == 0) out += '\0';
    }
    return out;
}

TEST(SearchMatcher, AgreesWithTheLineByLineReadingOnGeneratedTexts) {
    std::mt19937 rng(20261123);
    for (int round = 0; round < 300; ++round) {
        const std::string text = Generate(rng, 200, round % 3 == 0);
        for (int n = 0; n < 6; ++n) {
            std::string needle = Generate(rng, 1 + n % 3, false);
            if (n % 2 == 0 && text.size() > 8) {
                // A piece of the text itself, so that hits happen.
                const std::size_t at = rng() % (text.size() - 4);
                needle = text.substr(at, 1 + rng() % 4);
            }
            ExpectSame(text, needle);
        }
    }
}

TEST(SearchMatcher, FindsEveryFoldOfTheCodePageBothWays) {
    std::vector<std::string> letters;
    for (int b = 0x80; b <= 0xFF; ++b)
        letters.emplace_back(1, static_cast<char>(b));
    for (char32_t c = 0x80; c < 0x800; ++c) {
        std::string s;
        s += static_cast<char>(0xC0 | (c >> 6));
        s += static_cast<char>(0x80 | (c & 0x3F));
        letters.push_back(s);
    }
    for (const std::string& letter : letters) {
        const std::string text = "x" + letter + "y\r\nX" + casefold::Upper(letter) + "Y\r\n" + "x" +
                                 casefold::Lower(letter) + "y";
        for (const std::string& needle :
             {letter, casefold::Upper(letter), casefold::Lower(letter), "x" + letter})
            ExpectSame(text, needle);
    }
}

TEST(SearchMatcher, LongLinesAndLongTextsKeepTheirPositions) {
    std::string text(3 << 20, 'x');
    text.replace(text.size() - 10, 3, "cAt");
    text += "\r\ncat";
    EXPECT_EQ(Engine(text, "CAT", false, 1 << 16),
              (std::vector<TLineHit>{{0, static_cast<std::int64_t>(text.size()) - 14}, {1, 1}}));
    const std::string needle(100 * 1024, 'q');
    const std::string big = "a\r\n" + needle + "\r\n" + std::string(10, 'q') + "\r\n";
    EXPECT_EQ(Engine(big, needle, true, 4096), (std::vector<TLineHit>{{1, 1}}));
}

} // namespace
