#include <QApplication>
#include <QMainWindow>

#include <cstdlib>

// What a start of the toolkit costs at the least: an empty main window that leaves, without
// tidying up, once it is painted.

namespace {

class Window : public QMainWindow
{
protected:
    void paintEvent(QPaintEvent* event) override
    {
        QMainWindow::paintEvent(event);
        QMetaObject::invokeMethod(
            qApp, [] { std::_Exit(0); }, Qt::QueuedConnection);
    }
};

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    Window window;
    window.resize(960, 600);
    window.show();
    return QApplication::exec();
}
