#pragma once

#include "common/core/RunTimeError.h"

#include <QApplication>
#include <QTemporaryDir>

#include <vector>

namespace numbrela::testing {

// Gives Qt a platform without a display and a folder of its own for what it keeps while it runs. To be made
// before the application. The screen has the pixels that NUMBRELA_TEST_SCREEN says, such as 1920x1080.
class HeadlessEnvironment {
public:
    HeadlessEnvironment();

private:
    QTemporaryDir runtimeDirectory_;
};

// Takes the place of the program's application object, and records the errors that would have ended the program.
class TestApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;
};

// The run-time errors that have reached a TestApplication since the last call.
std::vector<RunTimeError> TakeRunTimeErrors();

// Runs all tests of the program under the application object that there is. A warning of Qt's, a run-time error that no
// test asked for, and a box that a test expected in vain each fail the test that was running.
int RunTests(int argc, char** argv);

// Has a warning of Qt's printed and the process aborted, for programs that are no test of GoogleTest's.
void AbortOnWarnings();

} // namespace numbrela::testing
