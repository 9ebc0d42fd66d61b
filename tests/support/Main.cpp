#include "tests/support/Harness.h"

#include "common/screen/Accessible.h"
#include "common/screen/Keyboard.h"
#include "common/screen/Look.h"

#include <QApplication>

namespace numbrela::testing {

namespace {

// Stands where the program's own application object stands, and keeps what would have ended the program.
class TestApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override
    {
        try {
            return QApplication::notify(receiver, event);
        } catch (const RunTimeError& error) {
            KeepRunTimeError(error);
            return true;
        }
    }
};

} // namespace

} // namespace numbrela::testing

int main(int argc, char** argv)
{
    const numbrela::testing::HeadlessEnvironment environment;
    numbrela::testing::TestApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Numbrela"));
    numbrela::ApplyLook(application);
    numbrela::InstallAccessibility();
    numbrela::RecogniseHeldKeys(application);
    return numbrela::testing::RunTests(application, argc, argv);
}
