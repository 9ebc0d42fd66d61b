#include "common/screen/StartUp.h"
#include "tests/support/Harness.h"

#include <QAbstractNativeEventFilter>

int main(int argc, char** argv)
{
    const numbrela::testing::HeadlessEnvironment environment;
    numbrela::testing::TestApplication application(argc, argv);
    const auto inertWindows = numbrela::StartUp(application);
    return numbrela::testing::RunTests(argc, argv);
}
