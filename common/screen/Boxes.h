#pragma once

#include <string>

class QWidget;

namespace numbrela {

// Qt's own modal boxes, with plain text (double blanks survive) and Spanish buttons. All texts are UTF-8; a box without
// a title gets the application's. Each uses the font of its window, and returns when it has been answered.

// A message with the one button "Aceptar" and no icon.
void ShowMessage(QWidget* parent, const std::string& text, const std::string& title = {});

enum class Answer { Yes, No };

// A question with the buttons "Sí" and "No", and no icon. Enter presses the button given by the default, Escape "No".
// Returns whether the answer was yes.
bool AskYesNo(QWidget* parent, const std::string& text, const std::string& title = {}, Answer onEnter = Answer::Yes);

// A line of text that a person types, on the keypad of the window if they like; empty when they cancel.
std::string AskText(
    QWidget* parent, const std::string& prompt, const std::string& title, const std::string& defaultText = {});

} // namespace numbrela
