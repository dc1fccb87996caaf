#include "OvTarnpick/OvTarnpickUtil.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvSegyParser.h"

#include <QCoreApplication>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QMessageBox>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(OvTarnpickUtil)
};

// From the first sample to the last one, hence one sample less.
int traceLengthMs(const OvSegyParser& parser)
{
    return (parser.traceLength() - 1) * parser.sampleRate() / 1000;
}

// The blanks of each label bring its value into one column; translations keep them.
QString segyInfo(const QString& fileName)
{
    const OvSegyParser parser(fileName);
    const QString format = OvBaseUtil::segyFormatInfo(parser.formatCode());
    QString text = QStringLiteral("\n");
    text += Text::tr("File:         ") + fileName + QStringLiteral(".\n");
    text += Text::tr("File Size:    ") + Text::tr("%1 Bytes.").arg(QFile(fileName).size()) + '\n';
    text += Text::tr("Sample Rate:  ") + Text::tr("%1 μs.").arg(parser.sampleRate()) + '\n';
    text += Text::tr("Trace Length: ") + Text::tr("%1 ms.").arg(traceLengthMs(parser)) + '\n';
    text += Text::tr("Data Format:  ") + QStringLiteral("%1.").arg(format) + '\n';
    text += Text::tr("Total Traces: ") + QStringLiteral("%1.").arg(parser.totalTraces()) + '\n';
    return text;
}

} // namespace

void OvTarnpickUtil::displaySegyInfo(const QString& fileName, QWidget* parent)
{
    if (!QFile::exists(fileName))
        return;
    QMessageBox box(QMessageBox::Information, Text::tr("Segy Information"), segyInfo(fileName),
                    QMessageBox::Close, parent);
    box.setDefaultButton(QMessageBox::Close);
    // A file name is no markup, and only a fixed-width font keeps the values in their column.
    box.setTextFormat(Qt::PlainText);
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label")))
        label->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    box.exec();
}
