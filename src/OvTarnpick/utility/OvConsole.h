#pragma once

#include <QDockWidget>
#include <QScopedPointer>
#include <QTextEdit>

class OvConsolePrivate;

/// The docked log console. While it lives it owns the process-wide message handler, and every
/// message that any thread logs becomes one line of its text area.
///
/// Call instance() on the GUI thread first, before other threads log, and never after the dock has
/// been destroyed: the pointer is kept. Without OvBaseUtil::initialize() beforehand the console
/// stays an empty dock and messages keep going to the toolkit's default output.
class OvConsole : public QDockWidget
{
    Q_OBJECT

public:
    static OvConsole& instance();

    /// For instance(), and for tests; a program has one console.
    OvConsole();
    ~OvConsole() override;

signals:
    /// One finished line. Emitted in the logging thread.
    void output(const QString& line);

public slots:
    /// Any thread. msg is read as UTF-8.
    void qOutput(QtMsgType type, const char* msg);
    /// Adds a two-column table of keys and values, taken in turn from infos; an odd last entry is
    /// dropped. GUI thread.
    void outputPairInfos(QStringList infos);

protected:
    void changeEvent(QEvent* event) override;

private:
    QScopedPointer<OvConsolePrivate> d;
};

/// The console's text area: low, and with a context menu that can clear it.
class CustomTextEdit : public QTextEdit
{
public:
    using QTextEdit::QTextEdit;

    QSize sizeHint() const override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
};
