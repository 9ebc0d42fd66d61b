#pragma once

#include <QApplication>

#include <memory>

class QAbstractNativeEventFilter;

namespace numbrela {

class RunTimeError;

// The program as a whole: its title, its look, that no minimised window leaves it looking dead, and the one place where
// a run-time error that nobody trapped ends it.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    ~Application() override;

    // Delivers an event. A run-time error that comes out of it is told to the person at the screen, and the program
    // ends with exit status 1.
    bool notify(QObject* receiver, QEvent* event) override;

private:
    void endBecauseOf(const RunTimeError& error);

    std::unique_ptr<QAbstractNativeEventFilter> inertWindows_;
    bool ending_ = false;
};

} // namespace numbrela
