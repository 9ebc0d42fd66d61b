#include "tests/support/Harness.h"

#include "tests/support/Boxes.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QWidget>

#include <stdexcept>
#include <utility>

namespace numbrela::testing {

namespace {

std::vector<RunTimeError> runTimeErrors;

void failOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (IsNews(type, message)) {
        ADD_FAILURE() << "the toolkit warns: " << message.toStdString();
    }
}

// Windows of every design size fit on it.
void writeScreen(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
    file.write(R"({ "screens": [ { "name": "classroom", "x": 0, "y": 0, "width": 1152, "height": 864,
        "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 } ] })");
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

bool IsNews(QtMsgType type, const QString& message)
{
    return type != QtDebugMsg && type != QtInfoMsg
        && !message.startsWith(QStringLiteral("This plugin does not support "));
}

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
    const QString screenFile = runtimeDirectory_.filePath(QStringLiteral("screen.json"));
    writeScreen(screenFile);
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(screenFile));
    qputenv("XDG_RUNTIME_DIR", runtimeDirectory_.path().toLocal8Bit());
    qputenv("LC_ALL", "C.UTF-8"); // newer toolkits warn of a language whose texts are not UTF-8
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
