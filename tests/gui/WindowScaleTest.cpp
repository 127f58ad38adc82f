// At every scale factor the main window opens inside the screen's free area
// with all of it in sight. Qt reads the scale factor once per process, so
// each factor runs this program again as a child on a 1280 x 800 screen.

#include <QScreen>
#include <QStatusBar>
#include <fstream>

#include "gui/GuiWindowFixture.h"
#include "support/ChildProcess.h"

namespace {

constexpr const char* childFlag = "VELLUMDESK_SCALE_CHILD";

// Runs only inside the child started below.
TEST_F(GuiWindow, ScaledChildShowsEverythingInsideTheScreen) {
    if (!std::getenv(childFlag)) GTEST_SKIP() << "runs as a child of the scale test";
    // The activation's last texts (the date) are laid out on the next turn.
    QTest::qWait(50);
    const QRect screen = window->screen()->availableGeometry();
    const double factor = std::atof(std::getenv("QT_SCALE_FACTOR"));
    EXPECT_EQ(screen.height(), static_cast<int>(800 / factor)) << "the 1280 x 800 screen, scaled";
    EXPECT_TRUE(screen.contains(window->frameGeometry())) << "window inside the free area";
    std::vector<QWidget*> parts;
    for (auto* button : window->findChildren<TPanelButtonWidget*>())
        parts.push_back(button);
    parts.push_back(window->findChild<QLabel*>("LMDpfStatusBar"));
    parts.push_back(window->findChild<QLabel*>("LMDpfDate"));
    for (QWidget* part : parts) {
        SCOPED_TRACE(part->objectName().toStdString());
        const QRect inWindow(part->mapTo(window.get(), QPoint(0, 0)), part->size());
        EXPECT_TRUE(part->isVisible());
        EXPECT_TRUE(window->rect().contains(inWindow)) << "not clipped";
        EXPECT_GE(part->width(), part->minimumSizeHint().width()) << "caption not cut";
    }
    EXPECT_GE(List().height(), 40) << "the list keeps some rows";
}

TEST(GuiScale, TheWindowFitsAtEveryScaleFactor) {
    TTempFolder folder;
    const std::string screen =
        folder.Write("screen.json", R"({"screens": [{"name": "s", "x": 0, "y": 0, "width": 1280,)"
                                    R"( "height": 800, "logicalDpi": 96, "logicalBaseDpi": 96}]})");
    const std::string platform = "offscreen:configfile=" + screen;
    for (const char* factor : {"1", "1.25", "1.5", "2"}) {
        SCOPED_TRACE(factor);
        TEnvOverride env;
        env.Set(childFlag, "1");
        env.Set("QT_SCALE_FACTOR", factor);
        env.Set("QT_QPA_PLATFORM", platform.c_str());
        const TChildResult child =
            RunChild({"/proc/self/exe", "--gtest_filter=GuiWindow.ScaledChild*"});
        EXPECT_EQ(child.exitCode, 0) << child.out;
        EXPECT_NE(child.out.find("[  PASSED  ] 1 test"), std::string::npos) << child.out;
    }
}

} // namespace
