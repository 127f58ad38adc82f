// The two catalogues over manifest folders that each test builds.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "plugins/PlugIns.h"
#include "support/GlobalScope.h"
#include "support/TempFolder.h"

namespace {

const char* const exampleManifest = "caption=Help Viewer\r\n"
                                    "Description = Opens the help for the current window\r\n"
                                    "executable=/Help/viewer\r\n"
                                    "param=/index\r\n"
                                    "param=/topic=start\r\n"
                                    "execute=spawn\r\n"
                                    "menuid=SystemHelp\r\n"
                                    "mutex=HelpViewerRunning\r\n";

// A program in TMP/app, its data folder TMP/data.
struct TCatalogue {
    TTempFolder tmp;
    TGlobalScope scope{AnsiString(tmp / "app/vellumdesk")};
    AnsiString dataFolder{tmp / "data"};
    TPlugIns plugins;
    TStringList ids;

    TCatalogue() {
        tmp.MakeFolder("app");
        plugins.SetDataFolder(dataFolder);
    }
    std::string Data(const std::string& name, std::string_view text) {
        return tmp.Write("data/Extentions/" + name, text);
    }
    std::string Own(const std::string& name, std::string_view text) {
        return tmp.Write("app/Extentions/" + name, text);
    }
    std::vector<std::string> Lines(const TStringList& list) {
        std::vector<std::string> lines;
        for (const AnsiString& line : list)
            lines.push_back(line.str());
        return lines;
    }
};

struct TManifestCase {
    const char* name;
    std::string file;
    std::string text;
    std::string caption; // empty: the file is not listed
    std::string id;
};

TEST(PlugInsCatalogue, EachManifestGivesOneEntryUnderItsCaption) {
    std::string huge;
    for (int i = 0; i < 40000; ++i)
        huge += "filler" + std::to_string(i) + "=some value of a line\r\n";
    const TManifestCase cases[] = {
        {"example", "helpviewer.ini", exampleManifest, "Help Viewer", "SystemHelp=Help Viewer"},
        {"no caption: last extension goes", "helpviewer.new.ini", "description=x\n",
         "helpviewer.new", "=helpviewer.new"},
        {"empty caption", "a.ini", "caption=\n", "a", "=a"},
        {"first line of a key wins", "b.ini", "CAPTION=a\ncaption=b\n", "a", "=a"},
        {"blanks around name and value", "c.ini", "  Caption  =  Spaced Out  \n menuID = Id \n",
         "Spaced Out", "Id=Spaced Out"},
        {"sections mean nothing", "d.ini", "[Viewer]\ncaption=In Section\n", "In Section",
         "=In Section"},
        {"no comment syntax", "e.ini", ";caption=x\n", "e", "=e"},
        {"lines without =", "f.ini", "no equals here\njust text\n", "f", "=f"},
        {"binary bytes", "g.ini", std::string("\x01\xff\xfe\0caption=zz\n", 15), "g", "=g"},
        {"caption holding =", "h.ini", "caption=a=b\n", "a=b", "=a=b"},
        {"huge, key at the end", "i.ini", huge + "caption=Huge\n", "Huge", "=Huge"},
        {"empty file", "empty.ini", "", "", ""},
        {"extension in capitals", "upper.INI", "caption=x\n", "", ""},
        {"another last extension", "k.ini.bak", "caption=x\n", "", ""},
        {"hidden file", ".hidden.ini", "caption=x\n", "", ""},
    };
    for (const TManifestCase& c : cases) {
        SCOPED_TRACE(c.name);
        TCatalogue cat;
        const std::string path = cat.Data(c.file, c.text);
        const int count = cat.plugins.LoadExtensions("", cat.ids);
        if (c.caption.empty()) {
            EXPECT_EQ(count, 0);
            EXPECT_EQ(cat.plugins.ExtensionList->Count(), 0);
            continue;
        }
        EXPECT_EQ(count, 1);
        EXPECT_EQ(cat.Lines(*cat.plugins.ExtensionList),
                  std::vector<std::string>{c.caption + "=" + path});
        EXPECT_EQ(cat.Lines(cat.ids), std::vector<std::string>{c.id});
        EXPECT_EQ(cat.plugins.ManifestLines.Count(), 0);
    }
}

TEST(PlugInsCatalogue, ProgramSideComesFirstAndBothSameNamesStay) {
    TCatalogue cat;
    const std::string own = cat.Own("help.ini", "caption=Help\nmenuid=SystemHelp\n");
    const std::string data = cat.Data("help.ini", "caption=Help\nmenuid=SystemHelp\n");
    cat.tmp.Write("data/Extentions/folder.ini/x.ini", "caption=inside\n");
    EXPECT_EQ(cat.plugins.LoadExtensions("Extentions", cat.ids), 2);
    EXPECT_EQ(cat.Lines(*cat.plugins.ExtensionList),
              (std::vector<std::string>{"Help=" + own, "Help=" + data}));
    EXPECT_EQ(cat.Lines(cat.ids), (std::vector<std::string>{"SystemHelp=Help", "SystemHelp=Help"}));
    EXPECT_EQ(cat.plugins.ExtensionList->GetValue("help").str(), own);
}

TEST(PlugInsCatalogue, PlugInsAndExtensionsKeepApartAndALoadReplacesTheOld) {
    TCatalogue cat;
    cat.Data("old.ini", "caption=Old\n");
    cat.tmp.Write("app/PlugIns/p.ini", "caption=Own PlugIn\nmenuid=P1\n");
    cat.tmp.Write("data/Tools/t.ini", "caption=Tool\n");
    TStringList plugInIds;
    cat.plugins.LoadExtensions("", cat.ids);
    ::unlink((cat.tmp / "data/Extentions/old.ini").c_str());
    cat.Data("new.ini", "caption=New\n");
    EXPECT_EQ(cat.plugins.LoadExtensions("", cat.ids), 1);
    EXPECT_EQ(cat.Lines(cat.ids), std::vector<std::string>{"=New"});
    // The root names the data side only; the program's side is always "PlugIns".
    EXPECT_EQ(cat.plugins.LoadPlugIns("Tools", plugInIds), 2);
    EXPECT_EQ(cat.Lines(plugInIds), (std::vector<std::string>{"P1=Own PlugIn", "=Tool"}));
    EXPECT_EQ(cat.plugins.CurrentList, cat.plugins.PlugInList.get());
    EXPECT_EQ(cat.Lines(*cat.plugins.ExtensionList),
              std::vector<std::string>{"New=" + (cat.tmp / "data/Extentions/new.ini")});
}

TEST(PlugInsCatalogue, ExtensionsClimbOneFolderWhenTheProgramHasNone) {
    struct TCase {
        const char* name;
        bool binHasExtensions;
        std::string base, own; // below TMP
    } const cases[] = {
        {"own folder", true, "/suite/bin/", "/suite/bin/Extentions"},
        {"folder above", false, "/suite", "/suite/Extentions"},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.name);
        TTempFolder tmp;
        TGlobalScope scope(AnsiString(tmp / "suite/bin/vellumdesk"));
        tmp.MakeFolder("suite/bin");
        if (c.binHasExtensions) tmp.MakeFolder("suite/bin/Extentions");
        const std::string above = tmp.Write("suite/Extentions/up.ini", "caption=Up\n");
        AnsiString data = tmp / "data";
        TPlugIns plugins;
        plugins.SetDataFolder(data);
        TStringList ids, plugInIds;
        plugins.LoadExtensions("", ids);
        plugins.LoadPlugIns("", plugInIds);
        EXPECT_EQ(plugins.BaseFolder.str(), tmp.Path() + c.base);
        EXPECT_EQ(plugins.OwnExtensionFolder.str(), tmp.Path() + c.own);
        EXPECT_EQ(plugins.ExtensionList->Count(), c.binHasExtensions ? 0 : 1);
        EXPECT_EQ(plugins.OwnPlugInFolder.str(), tmp / "suite/bin/PlugIns");
        EXPECT_EQ(plugins.ExtensionFolder.str(), tmp / "data/Extentions");
    }
}

TEST(PlugInsCatalogue, FoldersThatCannotBeListedGiveNothing) {
    TCatalogue cat;
    cat.tmp.Write("data/Extentions", "caption=a file, not a folder\n");
    cat.tmp.Write("app/Extentions/locked/a.ini", "caption=A\n");
    EXPECT_EQ(cat.plugins.LoadExtensions("", cat.ids), 0);
    EXPECT_EQ(cat.plugins.LoadPlugIns("", cat.ids), 0);
    if (::geteuid() == 0) return; // the owner of every file reads any folder
    cat.Own("b.ini", "caption=B\n");
    ::chmod((cat.tmp / "app/Extentions").c_str(), 0);
    EXPECT_EQ(cat.plugins.LoadExtensions("", cat.ids), 0);
}

TEST(PlugInsCatalogue, FieldsAndParamsOfAManifest) {
    TCatalogue cat;
    const AnsiString path = cat.Data("x.ini", exampleManifest);
    const char* const fields[] = {"Help Viewer",
                                  "Opens the help for the current window",
                                  "/Help/viewer",
                                  "/index",
                                  "",
                                  "HelpViewerRunning",
                                  "SystemHelp",
                                  "spawn"};
    for (std::uint16_t f = 0; f < 8; ++f)
        EXPECT_EQ(cat.plugins.GetManifestField(f, path).str(), fields[f]) << f;
    EXPECT_EQ(cat.plugins.GetManifestField(8, path).str(), "");
    EXPECT_EQ(cat.plugins.GetManifestParams(""), 2);
    EXPECT_EQ(cat.Lines(cat.plugins.ParamList),
              (std::vector<std::string>{"/index", "/topic=start"}));

    const AnsiString repeated =
        cat.Data("p.ini", "param=/a=1\nPARAM = same \nparam=\nparam=same\n");
    EXPECT_EQ(cat.plugins.GetManifestParams(repeated), 4);
    EXPECT_EQ(cat.Lines(cat.plugins.ParamList),
              (std::vector<std::string>{"/a=1", "same", "", "same"}));

    // A failed read forgets the manifest read before.
    EXPECT_EQ(cat.plugins.GetManifestField(0, cat.tmp / "missing.ini").str(), "");
    EXPECT_EQ(cat.plugins.GetManifestParams(""), 0);
    EXPECT_EQ(cat.plugins.GetManifestField(6, "").str(), "");
}

TEST(PlugInsCatalogue, LoadManifestReadsOnlyWhenAsked) {
    TCatalogue cat;
    TStringList lines;
    EXPECT_FALSE(cat.plugins.LoadManifest("", lines));
    lines.Add("kept=1");
    EXPECT_TRUE(cat.plugins.LoadManifest("", lines));
    EXPECT_EQ(cat.Lines(lines), std::vector<std::string>{"kept=1"});
    EXPECT_TRUE(cat.plugins.LoadManifest(cat.Data("m.ini", "a=1\nb=2\n"), lines));
    EXPECT_EQ(cat.Lines(lines), (std::vector<std::string>{"a=1", "b=2"}));
    EXPECT_FALSE(cat.plugins.LoadManifest(cat.tmp / "data", lines));
}

} // namespace
