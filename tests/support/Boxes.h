#pragma once

#include <QAnyStringView>
#include <QStringList>

#include <functional>

class QDialog;

// The modal boxes that a test expects, in the order in which they will open. A box is checked and answered as soon as
// it is on the screen; one that nobody expected fails the test and is closed, so that nothing hangs.
namespace numbrela::testing {

// Starts to watch for boxes; once, before the first test.
void WatchForBoxes();

// A message box with exactly these buttons and no icon, answered by one of them.
void ExpectMessage(QAnyStringView title, QAnyStringView text,
    const QStringList& buttons = { QStringLiteral("Aceptar") }, QAnyStringView press = "Aceptar");

// An input box, into which the answer is typed in place of the default text, and which Enter then accepts.
void ExpectInput(QAnyStringView title, QAnyStringView prompt, QAnyStringView answer, QAnyStringView defaultText = {});

// An input box that is left by "Cancelar", whatever has been typed.
void ExpectInputCancelled(QAnyStringView title, QAnyStringView prompt, QAnyStringView typed = {});

// Any other modal dialog; `answer` looks at it and closes it.
void ExpectDialog(std::function<void(QDialog&)> answer);

// How many of the expected boxes have not opened yet.
int PendingBoxes();

// Fails the running test for each expected box that never opened, and forgets them.
void FailForPendingBoxes();

} // namespace numbrela::testing
