#include "OvTarnpick/OvTarnpickUtil.h"

#include "OvBase/OvBaseUtil.h"
#include "OvBase/OvSegyParser.h"

#include <QCoreApplication>
#include <QFile>
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

// The values stand in a column only when all characters are equally wide. Asked for by name and
// hint: the desktop's own fixed-width font is a proportional one where no desktop theme is in
// force.
QFont fixedPitch(QFont font)
{
    font.setFamily(QStringLiteral("monospace"));
    font.setStyleHint(QFont::Monospace);
    return font;
}

} // namespace

void OvTarnpickUtil::displaySegyInfo(const QString& fileName, QWidget* parent)
{
    if (!QFile::exists(fileName))
        return;
    QMessageBox box(QMessageBox::Information, Text::tr("Segy Information"), segyInfo(fileName),
                    QMessageBox::Close, parent);
    box.setDefaultButton(QMessageBox::Close);
    box.setTextFormat(Qt::PlainText); // a file name is no markup
    if (auto* label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label")))
        label->setFont(fixedPitch(label->font()));
    box.exec();
}
