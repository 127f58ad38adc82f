// vellumdesk-help: the suite's help extension. Shows the user manual in a
// window of its own, with back, forward, contents and a find field.
//
// The manual is Help/vellumdesk-manual.html beside this program, beside its
// folder, or in share/vellumdesk/Help above it; a first argument naming an
// .html file shows that file instead. Started as a child that Vellumdesk waits
// for, it says it is up (see VELLUMDESK_READY_FD) once its window is shown.
// With VELLUMDESK_HELP_SCREENSHOT=file.png it saves a picture of its window
// and ends: that is how the demo shows it without a display.

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QKeySequence>
#include <QLineEdit>
#include <QMainWindow>
#include <QShortcut>
#include <QTextBrowser>
#include <QTimer>
#include <QToolBar>
#include <QUrl>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

const char* const manualName = "vellumdesk-manual.html";

QString FindManual(const QStringList& args) {
    if (args.size() > 1 && args[1].endsWith(".html") && QFileInfo(args[1]).isFile())
        return QFileInfo(args[1]).absoluteFilePath();
    const QDir own(QCoreApplication::applicationDirPath());
    for (const QString& place : {QStringLiteral("Help"), QStringLiteral("../Help"),
                                 QStringLiteral("../share/vellumdesk/Help")}) {
        const QString path = own.absoluteFilePath(place + "/" + manualName);
        if (QFileInfo(path).isFile()) return QDir::cleanPath(path);
    }
    return {};
}

// One byte on the descriptor the starting program gave: the window is up.
void SayReady() {
    const char* fd = std::getenv("VELLUMDESK_READY_FD");
    if (!fd) return;
    const int ready = std::atoi(fd);
    if (ready < 3) return;
    if (::write(ready, "1", 1) != 1) std::perror("vellumdesk-help: ready");
    ::close(ready);
}

// Finds the next place of the text, from the top again after the last one.
void FindNext(QTextBrowser& browser, const QString& text) {
    if (text.isEmpty() || browser.find(text)) return;
    QTextCursor top = browser.textCursor();
    top.movePosition(QTextCursor::Start);
    browser.setTextCursor(top);
    browser.find(text);
}

void BuildToolBar(QMainWindow& window, QTextBrowser& browser) {
    QToolBar* bar = window.addToolBar("Navigation");
    bar->setMovable(false);
    QAction* back = bar->addAction("Back", &browser, &QTextBrowser::backward);
    QAction* forward = bar->addAction("Forward", &browser, &QTextBrowser::forward);
    bar->addAction("Contents", &browser, &QTextBrowser::home);
    back->setShortcut(QKeySequence::Back);
    forward->setShortcut(QKeySequence::Forward);
    back->setEnabled(false);
    forward->setEnabled(false);
    QObject::connect(&browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    QObject::connect(&browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    bar->addSeparator();
    auto* find = new QLineEdit(bar);
    find->setPlaceholderText("Find in the manual");
    find->setClearButtonEnabled(true);
    find->setMaximumWidth(260);
    bar->addWidget(find);
    QObject::connect(find, &QLineEdit::returnPressed, &browser,
                     [&browser, find] { FindNext(browser, find->text()); });
    auto* focusFind = new QShortcut(QKeySequence::Find, &window);
    QObject::connect(focusFind, &QShortcut::activated, find, [find] {
        find->setFocus();
        find->selectAll();
    });
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("Vellumdesk Manual");
    const QString manual = FindManual(QApplication::arguments());
    if (manual.isEmpty()) {
        std::fprintf(stderr, "vellumdesk-help: cannot find Help/%s\n", manualName);
        return 1;
    }
    QMainWindow window;
    window.setWindowTitle("Vellumdesk Manual");
    auto* browser = new QTextBrowser(&window);
    browser->setOpenExternalLinks(true);
    browser->setSearchPaths({QFileInfo(manual).absolutePath()});
    browser->setSource(QUrl::fromLocalFile(manual));
    window.setCentralWidget(browser);
    BuildToolBar(window, *browser);
    window.resize(860, 680);
    window.show();
    QTimer::singleShot(0, &window, SayReady);
    if (const char* picture = std::getenv("VELLUMDESK_HELP_SCREENSHOT")) {
        QTimer::singleShot(300, &window, [&window, picture] {
            const bool saved = window.grab().save(QString::fromLocal8Bit(picture), "PNG");
            std::fprintf(stderr,
                         saved ? "vellumdesk-help: saved a picture of the manual to %s\n"
                               : "vellumdesk-help: could not save %s\n",
                         picture);
            QApplication::quit();
        });
    }
    return QApplication::exec();
}
