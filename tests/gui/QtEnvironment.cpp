// One QApplication for the whole GUI test program, shared by every test file
// of it, and gone before the program's exit handlers run (Qt's own globals
// must outlive it). A test file never makes a QApplication of its own.

#include <QApplication>
#include <gtest/gtest.h>
#include <memory>

namespace {

class TQtEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        static int argc = 1;
        static char name[] = "gui_tests";
        static char* argv[] = {name, nullptr};
        app = std::make_unique<QApplication>(argc, argv);
    }
    void TearDown() override { app.reset(); }

private:
    std::unique_ptr<QApplication> app;
};

[[maybe_unused]] const auto* const qtEnvironment =
    ::testing::AddGlobalTestEnvironment(std::make_unique<TQtEnvironment>().release());

} // namespace
