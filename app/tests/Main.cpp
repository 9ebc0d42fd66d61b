#include "app/Application.h"
#include "tests/support/Harness.h"

// These tests run under the program's own application object.
int main(int argc, char** argv)
{
    const numbrela::testing::HeadlessEnvironment environment;
    const numbrela::Application application(argc, argv);
    return numbrela::testing::RunTests(argc, argv);
}
