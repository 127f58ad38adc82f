#include <gtest/gtest.h>

#include "settings/Globals.h"
#include "support/GlobalScope.h"
#include "support/NextRegistry.h"

namespace {

const AnsiString base = "Software\\Clients\\Mail";

class Registry : public ::testing::Test {
protected:
    TGlobalScope scope;
    TNextRegistry next;
    TMemoryRegistry* registry = &next.Tree();
    void Client(const char* key, const char* name) {
        if (name)
            registry->SetString(base + "\\" + key, "", name);
        else
            registry->AddKey(base + "\\" + key);
    }
    std::vector<std::string> Lines(const TStringList& list) {
        return std::vector<std::string>(list.begin(), list.end());
    }
};

TEST_F(Registry, TurnsTheListAroundWhenTheDefaultIsThere) {
    registry->SetString(base, "", "Mail");
    Client("Mail", "Mail Client");
    Client("Other", "Other Client");
    Client("Hotmail", "Hotmail");
    const TGlobals globals;
    EXPECT_EQ(Lines(globals.MailClients),
              (std::vector<std::string>{"Mail Client=Mail", "Other Client=Other"}));
}

TEST_F(Registry, KeepsTheRawFormWhenTheDefaultIsMissing) {
    registry->SetString(base, "", "Gone");
    Client("Mail", "Mail Client");
    Client("HOTMAIL", "x");
    const TGlobals globals;
    EXPECT_EQ(Lines(globals.MailClients),
              (std::vector<std::string>{"default=Gone", "Mail=Mail Client"}));
}

TEST_F(Registry, RawListEdges) {
    Client("NoName", nullptr);
    TEMailReg reg;
    TStringList list;
    EXPECT_EQ(reg.GetMailClients(list), 2);
    EXPECT_EQ(Lines(list), (std::vector<std::string>{"default=", "NoName="}));
}

TEST_F(Registry, BaseKeyWithoutSubkeysGivesTheDefaultLineOnly) {
    registry->SetString(base, "", "x");
    TEMailReg reg;
    TStringList list;
    EXPECT_EQ(reg.GetMailClients(list), 1);
    EXPECT_EQ(list[0], "default=x");
}

TEST_F(Registry, NoBaseKeyLeavesTheListAlone) {
    registry->AddKey("Software\\Other");
    TEMailReg reg;
    TStringList list;
    list.Add("kept");
    EXPECT_EQ(reg.GetMailClients(list), 1);
}

TEST_F(Registry, ReadsValuesOfEveryType) {
    const AnsiString key = base + "\\Values";
    registry->SetInteger(key, "n", 25);
    registry->SetBinary(key, "b", std::string("Mail\0x", 6));
    registry->SetString(key, "e", "%ProgramFiles%\\x", rdExpandString);
    registry->SetUnknown(key, "u", "abc");
    TEMailReg reg;
    ASSERT_TRUE(registry->OpenKeyReadOnly(key));
    EXPECT_EQ(reg.ReadRegValue("n"), "25");
    EXPECT_EQ(reg.ReadRegValue("B"), "Mail");
    EXPECT_EQ(reg.ReadRegValue("e"), "%ProgramFiles%\\x") << "not expanded";
    EXPECT_EQ(reg.ReadRegValue("u"), "");
    EXPECT_EQ(reg.ReadRegValue("missing"), "");
}

TEST_F(Registry, ClientCommand) {
    registry->SetString(base + "\\Mail\\shell\\open\\command", "", "\"/x/mail\" -a");
    TEMailReg reg;
    EXPECT_EQ(reg.GetClientCommand("mail"), "\"/x/mail\" -a");
    EXPECT_EQ(reg.GetClientCommand("Other"), "");
}

} // namespace
