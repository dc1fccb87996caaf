#include "host/OvHostOptions.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <iterator>

namespace {

void describe(QCommandLineParser* parser)
{
    parser->setApplicationDescription(
        OvHostOptions::tr("Picks the first breaks of seismic gathers."));
    parser->addOptions({
        {{"h", "help"}, OvHostOptions::tr("Shows this help.")},
        {{"v", "version"}, OvHostOptions::tr("Shows the version.")},
        {"lang", OvHostOptions::tr("Language of this session: en or zh."), "en|zh"},
        {"home", OvHostOptions::tr("Folder of the user database and settings."), "folder"},
        {"demo", OvHostOptions::tr("Makes a synthetic line, opens it as project \"Demo\".")},
        {"project", OvHostOptions::tr("Logs in and opens the project of that name."), "name"},
        {"open", OvHostOptions::tr("Shows a SEG-Y file once a project is open."), "file"},
        {"login", OvHostOptions::tr("Logs in without the button.")},
        {"screenshots",
         OvHostOptions::tr("Walks through the program, writes a picture of each window, leaves."),
         "folder"},
    });
}

QString firstError(const QCommandLineParser& parser)
{
    const QStringList strays = parser.positionalArguments();
    if (!strays.isEmpty())
        return OvHostOptions::tr("Unexpected argument \"%1\".").arg(strays.first());
    const QString language = parser.value("lang");
    if (parser.isSet("lang") && language != "en" && language != "zh")
        return OvHostOptions::tr("Unknown language \"%1\"; use en or zh.").arg(language);
    for (const char* option : {"home", "project", "open", "screenshots"}) {
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return OvHostOptions::tr("The option --%1 needs a value.").arg(option);
    }
    if (parser.isSet("demo") && parser.isSet("project"))
        return OvHostOptions::tr("--demo and --project exclude each other.");
    return {};
}

OvHostOptions answer(OvHostOptions::Action action, const QString& text)
{
    OvHostOptions options;
    options.action = action;
    options.text = text;
    return options;
}

QString absolute(const QString& path)
{
    return path.isEmpty() ? path : QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

} // namespace

bool OvHostOptions::entersByItself() const
{
    return login || demo || !project.isEmpty() || !screenshots.isEmpty();
}

OvHostOptions OvHostOptions::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    describe(&parser);
    const bool known = parser.parse(arguments);
    if (known && parser.isSet("help"))
        return answer(Action::Print, parser.helpText());
    if (known && parser.isSet("version"))
        return answer(Action::Print, QCoreApplication::applicationName() + ' ' +
                                         QCoreApplication::applicationVersion() + '\n');
    const QString error = known ? firstError(parser) : parser.errorText();
    if (!error.isEmpty())
        return answer(Action::Refuse, error + '\n' + tr("Try --help.") + '\n');
    OvHostOptions options;
    options.language = parser.value("lang");
    options.home = absolute(parser.value("home"));
    options.project = parser.value("project");
    options.file = absolute(parser.value("open"));
    options.screenshots = absolute(parser.value("screenshots"));
    options.demo = parser.isSet("demo");
    options.login = parser.isSet("login");
    return options;
}

bool OvHostOptions::asksForText(int argc, const char* const* argv)
{
    return std::any_of(argv + 1, argv + argc, [](const char* argument) {
        static const char* const names[] = {"-h", "--help", "-v", "--version"};
        return std::any_of(std::begin(names), std::end(names),
                           [&](const char* name) { return qstrcmp(argument, name) == 0; });
    });
}
