#include <QWidget>
#include <gtest/gtest.h>
#include <memory>

#include "gui/QtApplication.h"

namespace {

bool OnTop(const QWidget& window) {
    return window.windowFlags().testFlag(Qt::WindowStaysOnTopHint);
}

// Around a started program, only the windows that were on top step down, stay
// shown, and get the state back; one closed in between is passed over.
TEST(QtWindowOrder, TopMostWindowsStepDownForAStartedProgramAndComeBack) {
    TQtApplication application;
    QWidget top, plain;
    auto gone = std::make_unique<QWidget>();
    for (QWidget* window : {&top, gone.get()}) {
        window->setWindowFlag(Qt::WindowStaysOnTopHint, true);
        window->show();
    }
    plain.show();

    application.NormalizeAllTopMosts();
    EXPECT_FALSE(OnTop(top));
    EXPECT_TRUE(top.isVisible());
    gone.reset();
    application.BringToFront();
    application.RestoreTopMosts();
    EXPECT_TRUE(OnTop(top));
    EXPECT_TRUE(top.isVisible());
    EXPECT_FALSE(OnTop(plain));
    application.RestoreTopMosts(); // nothing is held twice
    EXPECT_TRUE(OnTop(top));
}

} // namespace
