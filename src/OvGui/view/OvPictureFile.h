#pragma once

#include "OvGui/OvGuiExport.h"
#include "OvSeismic/OvStatus.h"

#include <QCoreApplication>
#include <QImage>

class QWidget;

/// Pictures of views as PNG files.
class OVGUI_EXPORT OvPictureFile
{
    Q_DECLARE_TR_FUNCTIONS(OvPictureFile)

public:
    /// Written beside path and renamed over it when complete, so a failure leaves path as it was.
    static OvStatus save(const QImage& image, const QString& path);
    /// Asks for the file name, offering name, then saves; says so when that fails. Returns the path
    /// written, or nothing.
    static QString askAndSave(QWidget* parent, const QString& name, const QImage& image);
    /// name without what file systems do not like.
    static QString cleanName(const QString& name);
};
