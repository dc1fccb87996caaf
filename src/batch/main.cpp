#include "Command.h"
#include "InfoCommand.h"
#include "PickCommand.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <vector>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(Batch)

public:
    static QString usage() { return tr("Usage: tarnpick-batch COMMAND [arguments]"); }
    static QString commands() { return tr("Commands:"); }
    static QString more() { return tr("tarnpick-batch COMMAND --help shows the arguments."); }
    static QString unknown(const QString& name) { return tr("Unknown command: %1").arg(name); }
};

const std::vector<Command>& commands()
{
    static const std::vector<Command> all = {InfoCommand::command(), PickCommand::command()};
    return all;
}

QString help()
{
    QString text = Text::usage() + QLatin1String("\n\n") + Text::commands() + QLatin1Char('\n');
    for (const Command& command : commands())
        text += QStringLiteral("  %1  %2\n")
                    .arg(QLatin1String(command.name), -8)
                    .arg(command.summary());
    return text + QLatin1Char('\n') + Text::more() + QLatin1Char('\n');
}

/// Scripts read the JSON, so it stays the same in every language.
bool wantsChinese(const QStringList& arguments)
{
    return QLocale::system().language() == QLocale::Chinese &&
           !arguments.contains(QLatin1String("--json"));
}

void speakChinese(QCoreApplication* application)
{
    for (const char* catalogue : {"OvSeismic_cn.qm", "TarnpickBatch_cn.qm"}) {
        auto* translator = new QTranslator(application);
        if (translator->load(QStringLiteral(":/resource/translations/") + QLatin1String(catalogue)))
            QCoreApplication::installTranslator(translator);
    }
}

int dispatch(const QStringList& arguments)
{
    const QString name = arguments.value(0);
    if (name == QLatin1String("--version") || name == QLatin1String("-v")) {
        printOut(QStringLiteral("tarnpick-batch " TARNPICK_VERSION "\n"));
        return ExitDone;
    }
    if (name == QLatin1String("--help") || name == QLatin1String("-h")) {
        printOut(help());
        return ExitDone;
    }
    for (const Command& command : commands()) {
        if (name == QLatin1String(command.name))
            return command.run(arguments.mid(1));
    }
    printError(name.isEmpty() ? help() : Text::unknown(name) + QLatin1String("\n\n") + help());
    return ExitWrongArguments;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("tarnpick-batch"));
    QCoreApplication::setApplicationVersion(QStringLiteral(TARNPICK_VERSION));
    const QStringList arguments = QCoreApplication::arguments().mid(1);
    if (wantsChinese(arguments))
        speakChinese(&application);
    return dispatch(arguments);
}
