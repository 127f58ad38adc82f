#include <gtest/gtest.h>

#include "platform/MemoryRegistry.h"

namespace {

class MemoryRegistry : public ::testing::Test {
protected:
    TMemoryRegistry registry;
    void SetUp() override {
        registry.SetString("Software\\Clients\\Mail", "", "Lark");
        registry.SetString("Software\\Clients\\Mail\\Lark", "", "Lark Mail");
        registry.SetString("Software\\Clients\\Mail\\Quill", "", "Quill Reader");
        registry.AddKey("Software\\Clients\\Mail\\Bare");
        registry.SetInteger("Software\\Clients\\Mail\\Lark", "Count", -7);
    }
    std::vector<std::string> KeyNames() {
        TStringList names;
        names.Add("stale");
        registry.GetKeyNames(names);
        return std::vector<std::string>(names.begin(), names.end());
    }
};

TEST_F(MemoryRegistry, PathsMatchWhateverTheirCaseAndLeadingBackslash) {
    for (const char* path : {"Software\\Clients\\Mail", "\\Software\\Clients\\Mail",
                             "\\SOFTWARE\\clients\\mail\\", "software\\Clients\\Mail\\"}) {
        ASSERT_TRUE(registry.OpenKeyReadOnly(path)) << path;
        EXPECT_EQ(registry.ReadString(""), "Lark") << path;
    }
    EXPECT_FALSE(registry.OpenKeyReadOnly("Software\\Clients\\News"));
}

TEST_F(MemoryRegistry, SubkeysKeepTheirSpellingAndOrder) {
    ASSERT_TRUE(registry.OpenKeyReadOnly("software\\clients\\mail"));
    EXPECT_EQ(KeyNames(), (std::vector<std::string>{"Lark", "Quill", "Bare"}));
    ASSERT_TRUE(registry.OpenKeyReadOnly("Software\\Clients\\Mail\\Bare"));
    EXPECT_EQ(KeyNames(), std::vector<std::string>{});
}

TEST_F(MemoryRegistry, AFailedOpenClosesTheKeyOpenBefore) {
    ASSERT_TRUE(registry.OpenKeyReadOnly("Software\\Clients\\Mail"));
    EXPECT_FALSE(registry.OpenKeyReadOnly("Software\\Missing"));
    EXPECT_EQ(registry.GetDataType(""), rdUnknown);
    EXPECT_EQ(KeyNames(), std::vector<std::string>{});
}

TEST_F(MemoryRegistry, OnlyTheMachineRootHoldsTheTree) {
    registry.SetRootKey(0x80000001u);
    EXPECT_FALSE(registry.OpenKeyReadOnly("Software\\Clients\\Mail"));
    registry.SetRootKey(HKEY_LOCAL_MACHINE);
    EXPECT_TRUE(registry.OpenKeyReadOnly("Software\\Clients\\Mail"));
}

TEST_F(MemoryRegistry, ReadingAValueAsTheWrongTypeRaises) {
    ASSERT_TRUE(registry.OpenKeyReadOnly("Software\\Clients\\Mail\\Lark"));
    EXPECT_EQ(registry.GetDataType("count"), rdInteger);
    EXPECT_EQ(registry.ReadInteger("COUNT"), -7);
    EXPECT_EQ(registry.GetDataSize("Count"), 4);
    EXPECT_THROW(registry.ReadString("Count"), ERegistryException);
    EXPECT_THROW(registry.ReadInteger(""), ERegistryException);
    EXPECT_THROW(registry.ReadString("missing"), ERegistryException);
    EXPECT_EQ(registry.GetDataSize("missing"), -1);
}

TEST_F(MemoryRegistry, BinaryDataIsCutToTheBuffer) {
    registry.SetBinary("Software\\Bin", "b", std::string("abc\0def", 7));
    ASSERT_TRUE(registry.OpenKeyReadOnly("Software\\Bin"));
    char buffer[8] = {};
    EXPECT_EQ(registry.ReadBinaryData("b", buffer, 5), 5);
    EXPECT_EQ(std::string(buffer, 5), std::string("abc\0d", 5));
    EXPECT_EQ(buffer[5], '\0') << "nothing is written beyond the size asked for";
    EXPECT_EQ(registry.ReadBinaryData("b", buffer, 8), 7);
}

} // namespace
