#pragma once

#include "app/Form1.h"
#include "app/ProgramRun.h"
#include "tests/support/FixedClock.h"

#include <QString>

#include <array>
#include <filesystem>
#include <memory>

namespace numbrela::testing {

// A window of the program and the way to it: the button of the main menu and then, for two of them, a menu item of the
// window that the button opens.
struct Route {
    const char* Window = nullptr; // its objectName
    int MenuButton = -1; // none: the main menu itself
    const char* Item = nullptr;
};

inline constexpr std::array<Route, 11> routes { {
    { "Form1" },
    { "Form2", 0 },
    { "Form3", 1 },
    { "Form4", 2 },
    { "Dialog", 2, "MnuOpcSelLis(1)" },
    { "Form5", 3 },
    { "Form6", 4 },
    { "FrmUnidad", 5 },
    { "FormColoSuma", 6 },
    { "Form7", 7 },
    { "DLGProductos", 7, "MnuOpcPro" },
} };

// The program as it runs: its main menu, with a clock that stands, and what is open beside it.
class Program {
public:
    explicit Program(std::filesystem::path catalogue = {});

    // Sets the clock, by the seconds since midnight.
    void SetTime(int seconds);

    ProgramRun& Run() { return run_; }
    Form1& Menu() { return *menu_; }

    // Starts again with a new menu.
    void StartAgain();

    // Goes the way to a window, from the main menu. Returns at once, but for "Dialog": when that has been closed.
    void Open(const Route& route);

    // Closes every window but the menu, whatever opens in its place, and destroys them.
    void CloseAll();

    // The window on the screen with this name; null when there is none.
    static QWidget* Window(const QString& name);

    // Lets Qt do all that waits to be done.
    static void Settle();

private:
    FixedClock* clock_ = new FixedClock; // the run's
    ProgramRun run_;
    std::unique_ptr<Form1> menu_;
};

} // namespace numbrela::testing
