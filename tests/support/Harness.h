#pragma once

#include "common/core/RunTimeError.h"

#include <QTemporaryDir>

#include <vector>

class QApplication;

namespace numbrela::testing {

// Gives the toolkit a platform without a display and a folder of its own for what it keeps while it runs. To be made
// before the application.
class HeadlessEnvironment {
public:
    HeadlessEnvironment();

private:
    QTemporaryDir runtimeDirectory_;
};

// Whether what the toolkit says is a warning, and about more than what a platform without a display cannot do and
// nothing depends on.
bool IsNews(QtMsgType type, const QString& message);

// Runs all tests of the program under this application. A warning of the toolkit, a run-time error that no test asked
// for, and a box that a test expected in vain each fail the test that was running.
int RunTests(QApplication& application, int argc, char** argv);

// Keeps an error for TakeRunTimeErrors: what an application object does with the errors that reach it.
void KeepRunTimeError(const RunTimeError& error);

// The run-time errors that have reached the application since the last call: those that would have ended the program.
std::vector<RunTimeError> TakeRunTimeErrors();

} // namespace numbrela::testing
