#pragma once

#include "activities/shopping/screen/Form7.h"
#include "activities/shopping/screen/ListBox.h"
#include "common/core/NumberText.h"
#include "common/screen/CommandButton.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <QTest>

#include <cmath>

namespace numbrela::testing {

// What a pupil does in the shopping window, beyond pressing buttons.

// Shows a window that has something to say at once, and waits until all that the test expects has been answered.
inline void ShowAndAnswerBoxes(Form7& form)
{
    form.show();
    EXPECT_TRUE(QTest::qWaitFor([] { return PendingBoxes() == 0; }));
    ShowAndActivate(form);
}

// The control of the window that has the focus, or will have it again when the window is in front.
inline std::string FocusIn(const Form7& form)
{
    return form.focusWidget() == nullptr ? std::string() : form.focusWidget()->objectName().toStdString();
}

inline int LineOf(const ListBox& list, const QString& text)
{
    for (int line = 0; line < list.count(); ++line) {
        if (list.item(line)->text() == text) {
            return line;
        }
    }
    ADD_FAILURE() << "no line \"" << text.toStdString() << '"';
    return 0;
}

inline void DoubleClickLine(ListBox& list, int line)
{
    list.scrollTo(list.model()->index(line, 0));
    const QPoint place = list.visualItemRect(list.item(line)).center();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
}

inline void TakeFromShelf(const Form7& form, const QString& product)
{
    DoubleClickLine(*form.LIDisponibles, LineOf(*form.LIDisponibles, product));
}

inline void GoInto(const Form7& form, const QString& shop)
{
    for (int index = 0; index < static_cast<int>(form.CBTienda.size()); ++index) {
        if (form.CBTienda[static_cast<std::size_t>(index)]->text() == shop) {
            Click(form, QStringLiteral("CBTienda(%1)").arg(index));
            return;
        }
    }
    ADD_FAILURE() << "no shop " << shop.toStdString();
}

inline void PressContinue(const Form7& form)
{
    Click(form, QStringLiteral("CbContinuar"));
}

// An amount as a careful pupil writes it: whole cents, two decimals.
inline QString Written(float euros)
{
    const long cents = std::lround(euros * 100);
    return QStringLiteral("%1,%2").arg(cents / 100).arg(cents % 100, 2, 10, QLatin1Char('0'));
}

} // namespace numbrela::testing
