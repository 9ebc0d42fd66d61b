#include "tests/support/Harness.h"

#include "tests/support/Boxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QWidget>

#include <utility>

namespace numbrela::testing {

namespace {

std::vector<RunTimeError> runTimeErrors;

void failOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    // The platform without a display says so of every window, and nothing depends on it.
    if (type == QtDebugMsg || type == QtInfoMsg
        || message == QStringLiteral("This plugin does not support propagateSizeHints()")) {
        return;
    }
    ADD_FAILURE() << "the toolkit warns: " << message.toStdString();
}

class LeftoverCheck : public ::testing::EmptyTestEventListener {
    void OnTestEnd(const ::testing::TestInfo& /*info*/) override
    {
        FailForPendingBoxes();
        for (const RunTimeError& error : TakeRunTimeErrors()) {
            ADD_FAILURE() << "a run-time error would have ended the program: " << error.what();
        }
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            EXPECT_FALSE(window->isVisible()) << "left open: " << window->windowTitle().toStdString();
        }
    }
};

} // namespace

void KeepRunTimeError(const RunTimeError& error)
{
    runTimeErrors.push_back(error);
}

std::vector<RunTimeError> TakeRunTimeErrors()
{
    return std::exchange(runTimeErrors, {});
}

HeadlessEnvironment::HeadlessEnvironment()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("XDG_RUNTIME_DIR", runtimeDirectory_.path().toLocal8Bit());
}

int RunTests(QApplication& /*application*/, int argc, char** argv)
{
    qInstallMessageHandler(failOnWarning);
    WatchForBoxes();
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new LeftoverCheck);
    return RUN_ALL_TESTS();
}

} // namespace numbrela::testing
