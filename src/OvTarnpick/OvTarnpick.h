#pragma once

#include "OvBase/OvProjectDefine.h"
#include "OvTarnpick/OvTarnpickExport.h"

#include <QMainWindow>
#include <QScopedPointer>

class OvAbstractViewController;
class OvTarnpickPrivate;

/// The program's main window. Made after login, on the GUI thread.
///
/// It docks the console and the task monitor, of which a process has one each: they go with the
/// window that docked them last. Closing the window closes the project and shuts the framework
/// down.
class OVTARNPICK_EXPORT OvTarnpick : public QMainWindow
{
    Q_OBJECT

public:
    explicit OvTarnpick(QWidget* parent = nullptr);
    ~OvTarnpick() override;

    /// Asks each module's tool bar widget to reset, whichever workspace is given.
    void populate(OvAbstractViewController* controller);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private slots:
    void on_action_New_Project_triggered(bool);
    void on_action_Open_Project_triggered(bool);
    void on_action_Manage_Project_triggered(bool);
    void on_action_Close_Project_triggered(bool);
    void on_action_Clear_Menu_triggered(bool);
    void on_actionExport_to_Image_triggered(bool);
    void on_actionExplorer_triggered(bool);
    void on_actionLinkWindow_triggered(bool);
    void on_actionEnglish_triggered(bool);
    void on_actionChinese_triggered(bool);
    void on_actionContent_triggered(bool);
    void on_actionAbout_Tarnpick_triggered(bool);
    void slotProjectChanged(const OvProjectDefine& define);

private:
    QScopedPointer<OvTarnpickPrivate> d;
};
