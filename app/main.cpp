#include "app/Application.h"
#include "app/Form1.h"

int main(int argc, char** argv)
{
    numbrela::Application application(argc, argv);
    const numbrela::SystemClock clock;
    numbrela::Form1 menu(clock);
    menu.show();
    return numbrela::Application::exec();
}
