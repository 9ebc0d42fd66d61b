#include "tests/program/Program.h"

#include "common/screen/CommandButton.h"
#include "tests/support/Driver.h"

#include <QAction>
#include <QApplication>

#include <utility>

namespace numbrela::testing {

Program::Program(std::filesystem::path catalogue)
    : run_ { .Time = std::unique_ptr<const Clock>(clock_), .Shopping = { std::move(catalogue) } }
{
    StartAgain();
}

void Program::SetTime(int seconds)
{
    clock_->Time = { seconds / 3600, seconds / 60 % 60, seconds % 60, static_cast<double>(seconds) };
}

void Program::StartAgain()
{
    menu_.reset();
    menu_ = std::make_unique<Form1>(run_);
    menu_->show();
    menu_->activateWindow();
    Settle();
}

void Program::Open(const Route& route)
{
    if (route.MenuButton < 0) {
        return;
    }
    menu_->Command1.at(static_cast<std::size_t>(route.MenuButton))->click();
    Settle();
    if (route.Item != nullptr) {
        QApplication::activeModalWidget()->findChild<QAction*>(QString::fromLatin1(route.Item))->trigger();
        Settle();
    }
}

void Program::CloseAll()
{
    for (bool closed = true; closed;) {
        closed = false;
        for (QWidget* window : WindowsOnScreen()) {
            if (window != menu_.get() && window->isVisible()) {
                closed = window->close() || closed;
            }
        }
        Settle();
    }
}

QWidget* Program::Window(const QString& name)
{
    for (QWidget* window : WindowsOnScreen()) {
        if (window->objectName() == name) {
            return window;
        }
    }
    return nullptr;
}

void Program::Settle()
{
    constexpr int rounds = 3; // what is done in one may leave something to be done in the next
    for (int round = 0; round < rounds; ++round) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace numbrela::testing
