#pragma once

#include <QAccessible>
#include <QString>

#include <concepts>

class QLineEdit;
class QWidget;

namespace numbrela {

// Has a screen reader say a text that it would not come across by itself, because it is not where the focus is. It is
// said as soon as the window of the control is in front and everything else that has happened has been told; what is
// announced until then is said in one piece. Nothing is made as long as no assistive tool listens.
void Announce(QWidget& control, const QString& text);

// The same for a text that has to be put together, which nobody does as long as no assistive tool listens.
template <std::invocable PutTogether>
void Announce(QWidget& control, const PutTogether& text)
{
    if (QAccessible::isActive()) {
        Announce(control, text());
    }
}

// Announces what is written in a box, by the name of the box: "Cociente: 21", "Suma: en blanco".
void AnnounceContents(QLineEdit& box);

// An exercise with its signs, each between blanks, in words: "12 × 3,5" as "12 por 3,5".
QString InWords(QString exercise);

} // namespace numbrela
