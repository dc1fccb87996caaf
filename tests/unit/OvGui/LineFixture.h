#pragma once

#include "OvBase/OvBaseUtil.h"
#include "Views.h"
#include "fixtures/WarningTrap.h"

#include <QTemporaryDir>

#include <memory>

/// The base of tests on a line of shots: anew for each test function a folder, a file in it, its
/// document and a view of it. end() hands over what was warned of meanwhile.
class LineFixture
{
protected:
    static constexpr int channels = 24;

    /// Once a test class; the program's local folder is one of its own.
    bool startProgram()
    {
        OvBaseUtil::setLocalPath(m_home.path());
        return OvBaseUtil::initialize().ok();
    }
    static void endProgram() { OvBaseUtil::finish(); }

    void begin()
    {
        WarningTrap::start();
        m_folder = std::make_unique<QTemporaryDir>();
    }
    QStringList end()
    {
        m_view.reset();
        m_document.reset();
        return WarningTrap::take();
    }

    QString path(const QString& name = QStringLiteral("line.sgy")) const
    {
        return m_folder->filePath(name);
    }
    bool openLine(int shots) { return Gathers::writeLine(path(), shots, channels) && openFile(); }
    /// Opens what stands at path() and waits until it is read.
    bool openFile()
    {
        m_view.reset();
        m_document = Views::openComplete(path());
        return m_document;
    }
    bool showView()
    {
        m_view = std::make_unique<OvGatherViewController>(m_document);
        return Views::show(*m_view);
    }
    OvGatherCanvas* canvas() const { return Views::canvasOf(*m_view); }
    template <typename Widget>
    Widget* child(const char* name) const
    {
        return m_view->findChild<Widget*>(QLatin1String(name));
    }

    QTemporaryDir m_home;
    std::unique_ptr<QTemporaryDir> m_folder;
    QSharedPointer<OvSegyDocument> m_document;
    std::unique_ptr<OvGatherViewController> m_view;
};
