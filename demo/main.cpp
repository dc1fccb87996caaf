#include "DemoLine.h"
#include "DemoSurvey.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <cstdio>

namespace {

enum ExitCode { ExitDone = 0, ExitFailed = 1, ExitWrongArguments = 2 };

class Texts
{
    Q_DECLARE_TR_FUNCTIONS(DemoMain)
};

void print(std::FILE* stream, const QString& text)
{
    std::fputs((text + QLatin1Char('\n')).toLocal8Bit().constData(), stream);
}

int write(const QString& folder, int shots)
{
    if (DemoSurvey::isComplete(folder, shots)) {
        print(stdout, Texts::tr("The demo survey in %1 is complete.").arg(folder));
        return ExitDone;
    }
    const OvStatus status = DemoSurvey::write(folder, shots);
    if (!status) {
        print(stderr, status.message());
        return ExitFailed;
    }
    print(stdout, Texts::tr("Wrote the demo survey to %1.").arg(folder));
    return ExitDone;
}

void speakTheUsersLanguage(QCoreApplication* application)
{
    if (QLocale::system().language() != QLocale::Chinese)
        return;
    auto* translator = new QTranslator(application);
    if (translator->load(QStringLiteral(":/resource/translations/TarnpickDemo_cn.qm")))
        QCoreApplication::installTranslator(translator);
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    speakTheUsersLanguage(&application);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        Texts::tr("Writes a synthetic refraction line with known first breaks."));
    const QCommandLineOption helpOption = parser.addHelpOption();
    const QCommandLineOption shotsOption(QStringLiteral("shots"),
                                         Texts::tr("Only the first N shots."), QStringLiteral("N"),
                                         QString::number(DemoLine::allShots));
    parser.addOption(shotsOption);
    parser.addPositionalArgument(QStringLiteral("FOLDER"), Texts::tr("Where the files go."));
    const bool parsed = parser.parse(QCoreApplication::arguments());
    if (parsed && parser.isSet(helpOption)) {
        print(stdout, parser.helpText());
        return ExitDone;
    }
    bool ok = false;
    const int shots = parser.value(shotsOption).toInt(&ok);
    ok = ok && shots >= 1 && shots <= DemoLine::allShots;
    if (!parsed || !ok || parser.positionalArguments().size() != 1) {
        print(stderr, parser.errorText() + QLatin1Char('\n') + parser.helpText());
        return ExitWrongArguments;
    }
    return write(parser.positionalArguments().at(0), shots);
}
