#include "ProgressLine.h"

#include "Command.h"

#include <QCoreApplication>

#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool isTerminal()
{
#ifdef Q_OS_WIN
    return _isatty(_fileno(stderr)) != 0;
#else
    return ::isatty(STDERR_FILENO) != 0;
#endif
}

QString lineOf(int done, int total)
{
    return QCoreApplication::translate("ProgressLine", "Gather %1 of %2 (%3 %)")
        .arg(done)
        .arg(total)
        .arg(total > 0 ? static_cast<qint64>(done) * 100 / total : 100);
}

} // namespace

ProgressLine::ProgressLine(bool wanted)
    : m_terminal(isTerminal())
    , m_on(wanted || m_terminal)
{
    m_sinceShown.start();
}

ProgressLine::~ProgressLine()
{
    if (m_shown && m_terminal)
        printError(QStringLiteral("\n"));
}

void ProgressLine::show(int done, int total)
{
    const qint64 intervalMs = m_terminal ? 100 : 2000;
    if (!m_on || (m_shown && done < total && m_sinceShown.elapsed() < intervalMs))
        return;
    m_sinceShown.restart();
    m_shown = true;
    printError(m_terminal ? QLatin1Char('\r') + lineOf(done, total)
                          : lineOf(done, total) + QLatin1Char('\n'));
}
