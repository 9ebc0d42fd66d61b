#pragma once

#include "tests/monkey/Chance.h"

#include <QString>

namespace numbrela::testing {

// A key of the keyboard and what it writes.
struct Key {
    int Code = 0; // Qt's
    QString Text = {};
    bool Keypad = false;
};

Key AnyKey(Chance& chance);

// The key of a menu, a list or a box: arrows, Enter, Escape, Space, Tab.
Key NavigationKey(Chance& chance);

Key KeyFor(QChar character);

// What a pupil may write for a number: "7", "12,5", "0,25".
QString SensibleNumber(Chance& chance);

// What is asked for in a box with this prompt: a shop, a product, or else a number.
QString SensibleAnswer(const QString& prompt, Chance& chance);

// What nobody should write, and somebody will: nothing, letters, huge numbers, exponents, signs, a text that never
// ends.
QString WildText(Chance& chance);

} // namespace numbrela::testing
