#include <chrono>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/Exceptions.h"
#include "foundation/FileDescriptor.h"
#include "foundation/StringList.h"
#include "support/TempFolder.h"

namespace {

// Whatever stands in a list file's place, the read ends at once: a pipe with
// no writer, an endless device, a folder; a file over the bound is refused.
TEST(SafeRead, AnythingButABoundedPlainFileIsRefusedAtOnce) {
    TTempFolder folder;
    ::mkfifo((folder / "IconMailbox.ini").c_str(), 0600);
    ::symlink("/dev/zero", (folder / "zero.ini").c_str());
    folder.MakeFolder("folder.ini");
    const std::string plain = folder.Write("plain.ini", "Inbox\r\nWork\r\n");
    struct TCase {
        std::string path;
        int error;
    } cases[] = {
        {folder / "IconMailbox.ini", EINVAL},
        {folder / "zero.ini", EINVAL},
        {folder / "folder.ini", EISDIR},
        {folder / "missing.ini", ENOENT},
    };
    for (const TCase& c : cases) {
        const auto start = std::chrono::steady_clock::now();
        TStringList list;
        EXPECT_THROW(list.LoadFromFile(AnsiString(c.path)), Exception) << c.path;
        std::string out;
        errno = 0;
        EXPECT_FALSE(ReadWholeFile(c.path.c_str(), out)) << c.path;
        EXPECT_EQ(errno, c.error) << c.path;
        EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2)) << c.path;
    }
    std::string out;
    EXPECT_FALSE(ReadWholeFile(plain.c_str(), out, 5));
    EXPECT_EQ(errno, EFBIG);
    ASSERT_TRUE(ReadWholeFile(plain.c_str(), out, 13));
    EXPECT_EQ(out, "Inbox\r\nWork\r\n");
}

} // namespace
