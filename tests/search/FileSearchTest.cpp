// The search and the row reader on real files: worker counts, strange files,
// and what a row shows of its message.

#include <gtest/gtest.h>

#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

#include "search/HitRows.h"
#include "search/SearchPool.h"
#include "support/TempFolder.h"

namespace {

using THits = std::vector<std::pair<std::size_t, TLineHit>>;

THits SearchAll(const std::vector<std::string>& paths, std::string_view text, bool caseSensitive,
                unsigned workers) {
    const TSearchMatcher matcher(text, caseSensitive);
    THits out;
    SearchInFiles(paths, matcher, workers, [&](std::size_t i, const std::vector<TLineHit>& hits) {
        for (const TLineHit& hit : hits)
            out.emplace_back(i, hit);
    });
    return out;
}

TEST(SearchPool, GivesTheSameHitsInTheSameOrderWithAnyNumberOfWorkers) {
    TTempFolder folder;
    std::mt19937 rng(7);
    std::vector<std::string> paths;
    for (int i = 0; i < 300; ++i) {
        std::string body;
        const int lines = 1 + static_cast<int>(rng() % 60);
        for (int j = 0; j < lines; ++j)
            body += (rng() % 7 == 0 ? "the Needle here " : "plain text line ") +
                    std::to_string(rng()) + "\r\n";
        paths.push_back(folder.Write("m" + std::to_string(i) + ".eml", body));
    }
    paths.push_back(folder / "missing.eml");
    paths.insert(paths.begin() + 10, paths[3]); // a file twice gives its hits twice
    for (const bool caseSensitive : {true, false}) {
        const THits one = SearchAll(paths, "needle", caseSensitive, 1);
        EXPECT_EQ(one.empty(), caseSensitive);
        for (const unsigned workers : {2u, 3u, 8u})
            EXPECT_EQ(SearchAll(paths, "needle", caseSensitive, workers), one) << workers;
    }
}

TEST(SearchPool, SkipsWhatIsNoReadablePlainFileWithoutWaiting) {
    TTempFolder folder;
    const std::string good = folder.Write("good.eml", "a cat\r\n");
    const std::string fifo = folder / "pipe.eml";
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const std::string locked = folder.Write("locked.eml", "a cat\r\n");
    chmod(locked.c_str(), 0);
    const bool root = geteuid() == 0;
    const std::string dir = folder.MakeFolder("dir.eml");
    const THits hits = SearchAll({fifo, dir, locked, good, "/dev/zero"}, "cat", true, 2);
    THits expected;
    if (root) expected.push_back({2, {0, 3}});
    expected.push_back({3, {0, 3}});
    EXPECT_EQ(hits, expected);
}

TEST(SearchPool, ASparseGiantMessageEndsAtItsFirstNul) {
    TTempFolder folder;
    const std::string path = folder.Write("sparse.eml", "cat\r\n");
    ASSERT_EQ(truncate(path.c_str(), 2LL << 30), 0);
    EXPECT_EQ(SearchAll({path}, "cat", true, 1), (THits{{0, {0, 1}}}));
}

struct TRowCase {
    const char* name;
    std::string text;
    std::vector<std::int64_t> wanted;
    std::map<std::int64_t, std::string> lines;
    const char *date, *from, *subject;
};

TEST(HitRows, ShowTheWantedLinesAndTheFirstLinesHoldingEachKey) {
    const std::vector<TRowCase> cases = {
        {"plain header",
         "From: a@b\r\nSubject: hi\r\nDate: today\r\n\r\nbody cat\r\n",
         {4},
         {{4, "body cat"}},
         "today",
         "a@b",
         "hi"},
        {"a key anywhere in a line, any case",
         "Resent-FROM: x\r\nFrom: y\r\n",
         {0},
         {{0, "Resent-FROM: x"}},
         " ",
         "x",
         " "},
        {"a body line serves as date",
         "up DATE: soon\r\nSubject:   s  \r\n",
         {1},
         {{1, "Subject:   s  "}},
         "soon",
         " ",
         "s"},
        {"the value starts behind the first colon",
         "x:y Subject: z\r\n",
         {0},
         {{0, "x:y Subject: z"}},
         " ",
         " ",
         "y Subject: z"},
        {"a value is cut at 512 bytes",
         "Subject:" + std::string(600, 'v'),
         {},
         {},
         " ",
         " ",
         nullptr},
        {"an index past the end gives no line", "a\r\nb", {1, 2}, {{1, "b"}}, " ", " ", " "},
        {"lines are split by the list rules",
         "a\rb\r\r\nc\nd",
         {0, 1, 2, 3, 4},
         {{0, "a"}, {1, "b"}, {2, ""}, {3, "c"}, {4, "d"}},
         " ",
         " ",
         " "},
        {"the text ends at a NUL",
         std::string("a\r\nb\0c\r\nd", 9),
         {1, 2},
         {{1, "b"}},
         " ",
         " ",
         " "},
    };
    TTempFolder folder;
    for (const TRowCase& c : cases) {
        const std::string path = folder.Write("m.eml", c.text);
        THitRows reader;
        THitRows::TFileValues values;
        ASSERT_TRUE(reader.Read(path.c_str(), c.wanted, {}, values)) << c.name;
        EXPECT_EQ(values.lines, c.lines) << c.name;
        EXPECT_EQ(values.date, c.date) << c.name;
        EXPECT_EQ(values.from, c.from) << c.name;
        if (c.subject)
            EXPECT_EQ(values.subject, c.subject) << c.name;
        else
            EXPECT_EQ(values.subject, std::string(512, 'v')) << c.name;
    }
}

TEST(HitRows, KeepsALineOfSeveralBlocksWholeAndFindsKeysAcrossBlocks) {
    TTempFolder folder;
    std::string text = "x-date: d\r\n" + std::string(3 << 20, 'w');
    text.replace((1 << 20) - 3, 8, "subject:");
    text += "\r\nlast";
    const std::string path = folder.Write("big.eml", text);
    THitRows reader;
    THitRows::TFileValues values;
    ASSERT_TRUE(reader.Read(path.c_str(), {1, 2}, {}, values));
    EXPECT_EQ(values.lines.at(1).size(), std::size_t{3 << 20});
    EXPECT_EQ(values.lines.at(2), "last");
    EXPECT_EQ(values.date, "d");
    EXPECT_EQ(values.subject.Length(), 512);
}

TEST(HitRows, StopsTheKeyLookupWhenToldSoAndGivesBlanks) {
    TTempFolder folder;
    const std::string path = folder.Write("m.eml", "x\r\ny\r\nFrom: late\r\n");
    THitRows reader;
    THitRows::TFileValues values;
    int calls = 0;
    ASSERT_TRUE(reader.Read(
        path.c_str(), {0}, [&] { return ++calls < 2; }, values));
    EXPECT_EQ(values.from, " ");
    EXPECT_EQ(calls, 2);
    EXPECT_FALSE(reader.Read((folder / "gone.eml").c_str(), {0}, {}, values));
}

} // namespace
