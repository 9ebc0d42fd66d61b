#include "common/screen/Accessible.h"
#include "common/screen/Keyboard.h"
#include "common/screen/Look.h"
#include "tests/support/Harness.h"

int main(int argc, char** argv)
{
    const numbrela::testing::HeadlessEnvironment environment;
    numbrela::testing::TestApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Numbrela"));
    numbrela::ApplyLook(application);
    numbrela::InstallAccessibility();
    numbrela::RecogniseHeldKeys(application);
    return numbrela::testing::RunTests(argc, argv);
}
