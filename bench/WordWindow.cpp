#include <QApplication>
#include <QLabel>

// The least that a Qt program can be that shows a text.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QLabel word(QStringLiteral("Hola"));
    word.show();
    return QApplication::exec();
}
