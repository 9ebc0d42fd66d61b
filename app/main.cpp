#include "app/Application.h"
#include "app/Form1.h"
#include "app/ProgramRun.h"

int main(int argc, char** argv)
{
    numbrela::Application application(argc, argv);
    numbrela::ProgramRun run { .Shopping = { .Catalogue = numbrela::CatalogueBesideProgram() } };
    numbrela::Form1 menu(run);
    menu.show();
    return numbrela::Application::exec();
}
