#pragma once

#include "OvBase/OvBaseUtil.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTextStream>

/// The program that a benchmark of widgets runs in: offscreen, with a folder of its own for all
/// that is kept. The folder stands beside the program: the one for temporary files may lie in
/// memory.
class BenchProgram
{
public:
    BenchProgram(int& argc, char** argv)
        : m_application(offscreen(argc), argv)
        , m_folder(QCoreApplication::applicationDirPath() + "/kept-XXXXXX")
    {
        OvBaseUtil::setLocalPath(folder());
        qputenv("XDG_CACHE_HOME", folder().toLocal8Bit());
    }
    ~BenchProgram() { OvBaseUtil::finish(); }
    Q_DISABLE_COPY(BenchProgram)

    QString folder() const { return m_folder.path(); }
    QString path(const QString& name) const { return m_folder.filePath(name); }
    /// What main() returns when something cannot be made.
    static int fail(const char* what)
    {
        QTextStream(stderr) << QCoreApplication::applicationName() << ": " << what << '\n';
        return 1;
    }

private:
    static int& offscreen(int& argc)
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        return argc;
    }

    QApplication m_application;
    QTemporaryDir m_folder;
};
