#pragma once

#include "app/Activities.h"
#include "common/screen/FormWindow.h"

#include <QPointer>

#include <array>

namespace numbrela {

class CommandButton;

// The main menu: a column of nine buttons, eight of which open one activity each and the last of which ends the
// program. What an activity is, it does not know: it opens its window and waits, inert, until that closes.
class Form1 : public FormWindow {
public:
    explicit Form1(ProgramRun& run); // which outlives it
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
    QPointer<FormWindow> activity_; // that was opened last; null once it is destroyed
};

} // namespace numbrela
