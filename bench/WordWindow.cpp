#include <QApplication>
#include <QLabel>

// The smallest possible Qt program that shows a text.
int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QLabel word(QStringLiteral("Hola"));
    word.show();
    return QApplication::exec();
}
