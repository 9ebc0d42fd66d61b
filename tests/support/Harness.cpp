#include "tests/support/Harness.h"

#include "tests/support/Boxes.h"
#include "tests/support/Sanitizer.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace numbrela::testing {

namespace {

std::vector<RunTimeError> recordedErrors;

// Nothing depends on what a platform without a display cannot do.
bool isSeriousWarning(QtMsgType type, const QString& message)
{
    return type != QtDebugMsg && type != QtInfoMsg
        && !message.startsWith(QStringLiteral("This plugin does not support "));
}

void failOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (isSeriousWarning(type, message)) {
        ADD_FAILURE() << "Qt warns: " << message.toStdString();
    }
}

void abortOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (isSeriousWarning(type, message)) {
        std::fprintf(stderr, "Qt warns: %s\n", qUtf8Printable(message));
        PrintStack();
        std::abort();
    }
}

// Windows of every design size fit on one of 1152 by 864 pixels, each of which may be several of the screen's own.
void writeScreen(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
    const int scale = std::max(1, qEnvironmentVariableIntValue("QT_SCALE_FACTOR"));
    const QString wanted
        = qEnvironmentVariable("NUMBRELA_TEST_SCREEN", QStringLiteral("%1x%2").arg(1152 * scale).arg(864 * scale));
    file.write(QStringLiteral(R"({ "screens": [ { "name": "classroom", "x": 0, "y": 0, "width": %1, "height": %2,
        "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 } ] })")
                   .arg(wanted.section(u'x', 0, 0), wanted.section(u'x', 1, 1))
                   .toLatin1());
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

bool TestApplication::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const RunTimeError& error) {
        recordedErrors.push_back(error);
        return true;
    }
}

std::vector<RunTimeError> TakeRunTimeErrors()
{
    return std::exchange(recordedErrors, {});
}

HeadlessEnvironment::HeadlessEnvironment()
{
    const QString screenFile = runtimeDirectory_.filePath(QStringLiteral("screen.json"));
    writeScreen(screenFile);
    const QString withoutDrive = screenFile.section(QLatin1Char(':'), -1); // Qt parts the arguments at each colon
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFile::encodeName(withoutDrive));
    qputenv("XDG_RUNTIME_DIR", runtimeDirectory_.path().toLocal8Bit());
    qputenv("LC_ALL", "C.UTF-8"); // newer versions of Qt warn of a language whose texts are not UTF-8
}

int RunTests(int argc, char** argv)
{
    qInstallMessageHandler(failOnWarning);
    WatchForBoxes();
    ::testing::InitGoogleTest(&argc, argv);
    ::testing::UnitTest::GetInstance()->listeners().Append(new LeftoverCheck);
    return RUN_ALL_TESTS();
}

void AbortOnWarnings()
{
    qInstallMessageHandler(abortOnWarning);
}

} // namespace numbrela::testing
