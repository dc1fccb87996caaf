#pragma once

#include <QJsonObject>
#include <QPoint>
#include <QProcess>
#include <QProcessEnvironment>
#include <QRect>
#include <QString>
#include <QTemporaryDir>

#include <functional>

/// Uses the built program as a person does: on a virtual screen with a window manager, with mouse
/// and keys. The probe plug-in tells where things are; it never acts.
class Walker
{
public:
    Walker();
    ~Walker();

    /// The virtual screen and its window manager; false when they do not start, tried more than
    /// once.
    bool startScreen();
    /// The program with a home folder that lasts as long as the walker.
    bool startProgram(const QStringList& arguments = {});
    bool programRuns() const;
    /// Waits for the program's own end; its exit code, -1 when it does not end or crashes.
    int waitForEnd(int timeoutMs = 30000);
    /// What the program has printed since it started.
    QString programOutput();
    /// Ends a program that is still there, for the next test.
    void killProgram();

    QString home() const { return m_folder.path(); }

    /// The first window of the program that the window manager shows; empty when none comes.
    QString waitForWindow(int timeoutMs = 30000);

    /// Return in the login window, again where the first one was lost, until the main window is
    /// there.
    bool logIn();

    void key(const QString& keys);
    void type(const QString& text);
    void click(const QRect& rect);
    void doubleClick(const QRect& rect);
    void moveTo(const QPoint& point);

    QJsonObject ask(const QString& what, const QString& name = {}, QJsonObject more = {});
    static QRect rectOf(const QJsonObject& answer);
    static bool waitFor(const std::function<bool()>& condition, int timeoutMs = 15000);

    bool waitForMainWindow();
    /// Waits for a modal dialog, by object name or class; any when empty.
    bool waitForDialog(const QString& name);
    bool waitForNoDialog();
    bool clickWidget(const QString& name);
    /// Opens the menus of path one below the other and clicks the last entry. Menus by object name,
    /// entries by object name or, with a leading '=', by their text.
    bool clickMenu(const QStringList& path);
    /// A picture of the whole screen, for the eye, in the folder that TARNPICK_E2E_PICTURES names.
    void picture(const QString& name);

private:
    QByteArray tool(const QString& program, const QStringList& arguments);
    bool startServer();
    bool startManager();
    void endScreen();
    bool clickEntry(const QString& entry);
    bool probe(const QByteArray& question, QByteArray* answer);

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QProcess m_screen;
    QProcess m_manager;
    QProcess m_program;
    QString m_output;
    int m_starts = 0;
    QPoint m_pointer{-1, -1}; // nobody else moves it
    QString m_socket;
};
