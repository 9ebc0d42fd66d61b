#include <QApplication>
#include <QWidget>

// The smallest possible Qt program: whatever another program costs beyond this is its own.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget window;
    window.show();
    return QApplication::exec();
}
