#include "OvBase/OvDialog.h"

#include "OvBase/OvBaseUtil.h"

#include <QDesktopServices>
#include <QKeyEvent>
#include <QUrl>

OvDialog::OvDialog(QWidget* parent)
    : QDialog(parent)
{
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
}

OvDialog::~OvDialog() = default;

QString OvDialog::helpPage() const
{
    return {};
}

void OvDialog::keyPressEvent(QKeyEvent* event)
{
    const QString page = helpPage();
    const bool wantsHelp = event->matches(QKeySequence::HelpContents) ||
                           (event->key() == Qt::Key_F1 && event->modifiers() == Qt::NoModifier);
    if (!wantsHelp || page.isEmpty()) {
        QDialog::keyPressEvent(event);
        return;
    }
    QDesktopServices::openUrl(QUrl(OvBaseUtil::helpBaseUrl() + page));
    event->accept();
}
