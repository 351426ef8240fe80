// The yardstick of bench_start: a program that shows an empty window.

#include <QApplication>
#include <QDialog>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QDialog window;
    window.setWindowState(Qt::WindowMaximized);
    window.show();
    return QApplication::exec();
}
