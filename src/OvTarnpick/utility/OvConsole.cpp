#include "OvTarnpick/utility/OvConsole.h"

#include "OvBase/OvBaseUtil.h"
#include "OvTarnpick/utility/OvLogPace.h"

#include "ui_OvConsole.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPointer>
#include <QTextFrame>
#include <QTextTable>

class OvConsolePrivate
{
public:
    explicit OvConsolePrivate(OvConsole* console);

    void createTextArea();
    void insertPairs(QTextTable* table, const QStringList& infos);

    OvConsole* q;
    Ui::OvConsole ui;
    CustomTextEdit* textArea = nullptr;
};

namespace {

OvConsole* theConsole = nullptr;

// Narrow bytes on purpose: what is not ASCII reaches the console as replacement characters.
void handleMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text)
{
    const QByteArray bytes = text.toLatin1();
    OvConsole& console = OvConsole::instance();
    QMetaObject::invokeMethod(&console, "qOutput", Qt::DirectConnection, Q_ARG(QtMsgType, type),
                              Q_ARG(const char*, bytes.constData()));
    OvLogPace::keep(&console);
}

void insertCell(QTextTable* table, int row, int column, Qt::Alignment alignment,
                const QString& text)
{
    QTextBlockFormat format;
    format.setAlignment(alignment);
    QTextCursor cursor = table->cellAt(row, column).firstCursorPosition();
    cursor.setBlockFormat(format);
    cursor.insertText(text);
}

} // namespace

OvConsolePrivate::OvConsolePrivate(OvConsole* console)
    : q(console)
{
    ui.setupUi(q);
}

void OvConsolePrivate::createTextArea()
{
    textArea = new CustomTextEdit;
    q->setWidget(textArea);
    QObject::connect(q, &OvConsole::output, textArea, &QTextEdit::append);
    textArea->setFont(QFont(QStringLiteral("simsun"), 9));
    textArea->setReadOnly(true);
    // Nobody can undo in it, and remembering each line takes time and memory.
    textArea->setUndoRedoEnabled(false);
}

void OvConsolePrivate::insertPairs(QTextTable* table, const QStringList& infos)
{
    for (int row = 0; row < infos.size() / 2; ++row) {
        const QString key = infos.at(2 * row) + QObject::tr(":") + QLatin1Char(' ');
        insertCell(table, row, 0, Qt::AlignRight, key);
        insertCell(table, row, 1, Qt::AlignLeft, infos.at(2 * row + 1));
    }
}

OvConsole& OvConsole::instance()
{
    if (!theConsole)
        theConsole = new OvConsole;
    return *theConsole;
}

OvConsole::OvConsole()
    : d(new OvConsolePrivate(this))
{
    qRegisterMetaType<QtMsgType>("QtMsgType");
    if (!OvBaseUtil::isInitialized())
        return;
    qInstallMessageHandler(handleMessage);
    d->createTextArea();
    setWindowTitle(QObject::tr("Console"));
}

OvConsole::~OvConsole()
{
    qInstallMessageHandler(nullptr);
}

void OvConsole::qOutput(QtMsgType type, const char* msg)
{
    QString line;
    if (type == QtWarningMsg)
        line = tr("Warning: ");
    else if (type == QtCriticalMsg)
        line = tr("Critical: ");
    else if (type == QtFatalMsg)
        line = tr("Fatal: ");
    line += QString::fromUtf8(msg);
    // One or two characters keep their line breaks.
    if (line.size() > 2)
        line.remove(QLatin1Char('\n')).remove(QLatin1Char('\r'));
    emit output(line);
}

// By value: the slot is known by this signature.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
void OvConsole::outputPairInfos(QStringList infos)
{
    if (infos.isEmpty() || !d || !d->textArea)
        return;
    QTextCursor cursor = d->textArea->document()->rootFrame()->lastCursorPosition();
    if (cursor.isNull())
        return;
    QTextTableFormat format;
    format.setBorder(0);
    if (QTextTable* table = cursor.insertTable(infos.size() / 2, 2, format))
        d->insertPairs(table, infos);
}

void OvConsole::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        d->ui.retranslateUi(this);
        setWindowTitle(QObject::tr("Console"));
    }
    QDockWidget::changeEvent(event);
}

QSize CustomTextEdit::sizeHint() const
{
    return {100, 30};
}

void CustomTextEdit::contextMenuEvent(QContextMenuEvent* event)
{
    // The menu is a child of this widget and may go with it while it is open.
    const QPointer<QMenu> menu = createStandardContextMenu();
    menu->addSeparator();
    menu->addAction(QObject::tr("Clear"), this, &QTextEdit::clear);
    menu->exec(event->globalPos());
    delete menu.data();
}
