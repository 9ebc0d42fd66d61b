#pragma once

#include "app/Activities.h"
#include "common/screen/FormWindow.h"

#include <QPointer>

#include <array>

namespace numbrela {

class CommandButton;

// The main menu: a column of nine buttons, eight of which open one activity each and the last of which ends the
// program. It knows nothing about an activity but its caption and its window, which it opens; until that closes, the
// menu is inert.
class Form1 : public FormWindow {
public:
    explicit Form1(ProgramRun& run); // `run` outlives the menu
    ~Form1() override;

    void Command1_Click(int index);
    void MnuAce_Click();

    std::array<CommandButton*, activities.size() + 1> Command1 {};

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void Form_Load();
    void showActivity() const;

    ProgramRun& run_;
    QPointer<FormWindow> activity_; // the one opened last; null once it is destroyed
};

} // namespace numbrela
