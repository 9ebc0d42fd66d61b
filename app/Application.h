#pragma once

#include <QApplication>

#include <memory>

class QAbstractNativeEventFilter;

namespace numbrela {

class RunTimeError;

// The program as a whole. Sets its title and its look, brings back a minimised window that keeps others inert, and is
// the one place where an uncaught run-time error ends the program.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    ~Application() override;

    // Delivers an event. If a run-time error comes out of it, shows the error in a box and ends the program with exit
    // status 1.
    bool notify(QObject* receiver, QEvent* event) override;

private:
    void endBecauseOf(const RunTimeError& error);

    std::unique_ptr<QAbstractNativeEventFilter> inertWindows_;
    bool ending_ = false;
};

} // namespace numbrela
