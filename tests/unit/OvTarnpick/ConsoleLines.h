#pragma once

#include "OvTarnpick/utility/OvConsole.h"

#include <QStringList>

/// What the console has shown so far, without what the offscreen platform says of itself.
inline QStringList consoleLines()
{
    const auto* area = OvConsole::instance().findChild<QTextEdit*>();
    QStringList lines;
    const QStringList shown = area ? area->toPlainText().split(QLatin1Char('\n')) : QStringList();
    for (const QString& line : shown) {
        if (!line.contains(QLatin1String("This plugin does not support")))
            lines.append(line);
    }
    return lines;
}

inline QStringList consoleWarnings()
{
    return consoleLines().filter(QStringLiteral("Warning: "));
}
