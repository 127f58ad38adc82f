#include "app/CommandLine.h"

#include <QCommandLineParser>
#include <QStringList>
#include <cstdio>

namespace {

// The options QGuiApplication and QApplication take themselves, with a value
// or without; the parser knows them only to let them through.
const char* const qtValueOptions[] = {
    "platform",    "platformpluginpath", "platformtheme", "plugin",  "qwindowgeometry",
    "qwindowicon", "qwindowtitle",       "session",       "display", "geometry",
    "style",       "stylesheet",         "name",          "title",   "visual"};
const char* const qtSwitches[] = {"reverse", "widgetcount", "nograb", "dograb", "sync"};

void AddQtOptions(QCommandLineParser& parser) {
    for (const char* name : qtValueOptions) {
        QCommandLineOption option(QString::fromLatin1(name), QString(), QStringLiteral("value"));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
    for (const char* name : qtSwitches) {
        QCommandLineOption option(QString::fromLatin1(name));
        option.setFlags(QCommandLineOption::HiddenFromHelp);
        parser.addOption(option);
    }
}

void Put(std::FILE* to, const QString& text) {
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), to);
}

// Without an application object the parser cannot name the program.
QString HelpText(const QCommandLineParser& parser) {
    return parser.helpText().replace(QStringLiteral("<executable_name>"),
                                     QStringLiteral("vellumdesk"));
}

} // namespace

int HandleCommandLine(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Lists, sorts, filters and opens the mail messages the Quillpost suite "
                       "saved.\nThe mailbox to open comes from the hand-off file "
                       "vellumdesk.ini beside the program."));
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    AddQtOptions(parser);
    if (!parser.parse(arguments)) {
        Put(stderr, QStringLiteral("vellumdesk: %1\n").arg(parser.errorText()));
        Put(stderr, HelpText(parser));
        return 2;
    }
    if (parser.isSet(help) || parser.isSet(QStringLiteral("help-all"))) {
        Put(stdout, HelpText(parser));
        return 0;
    }
    if (parser.isSet(version)) {
        std::printf("vellumdesk %s\n", VELLUMDESK_VERSION);
        return 0;
    }
    return -1;
}
