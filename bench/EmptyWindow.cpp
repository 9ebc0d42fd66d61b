#include <QApplication>
#include <QWidget>

// The least that a Qt program can be: what any other one costs more than this is its own.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.show();
    return QApplication::exec();
}
