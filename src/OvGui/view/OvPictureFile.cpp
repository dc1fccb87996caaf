#include "OvGui/view/OvPictureFile.h"

#include "OvBase/OvBaseUtil.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QRegularExpression>
#include <QSaveFile>
#include <QStandardPaths>

namespace {

QString folderKey()
{
    return QStringLiteral("pictureFolder");
}

QString startFolder()
{
    const QString last = OvBaseUtil::globalValue(folderKey()).toString();
    return !last.isEmpty() && QDir(last).exists()
               ? last
               : QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
}

} // namespace

OvStatus OvPictureFile::save(const QImage& image, const QString& path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !image.save(&file, "PNG") || !file.commit())
        return OvStatus::failure(tr("The picture could not be written to %1: %2. Choose another "
                                    "folder or free some space.")
                                     .arg(QDir::toNativeSeparators(path), file.errorString()));
    return OvStatus::success();
}

QString OvPictureFile::cleanName(const QString& name)
{
    QString clean = name;
    return clean.replace(QRegularExpression(QStringLiteral("[/\\\\:*?\"<>|\\s]+")),
                         QStringLiteral("_"));
}

QString OvPictureFile::askAndSave(QWidget* parent, const QString& name, const QImage& image)
{
    const QString start = startFolder() + '/' + cleanName(name) + QStringLiteral(".png");
    QString path = QFileDialog::getSaveFileName(parent, tr("Export to Image"), start,
                                                tr("PNG images (*.png)"));
    if (path.isEmpty())
        return {};
    if (QFileInfo(path).suffix().isEmpty())
        path += QStringLiteral(".png");
    const OvStatus status = save(image, path);
    if (!status) {
        QMessageBox::warning(parent, tr("Warning"), status.message());
        return {};
    }
    const OvStatus kept = OvBaseUtil::setGlobalValue(folderKey(), QFileInfo(path).path());
    if (!kept)
        qWarning("%s", qPrintable(kept.message()));
    return path;
}
