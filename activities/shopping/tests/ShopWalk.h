#pragma once

#include "activities/shopping/screen/Form7.h"
#include "activities/shopping/screen/ListBox.h"
#include "common/core/NumberText.h"
#include "common/screen/CommandButton.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <QDialog>
#include <QTest>

#include <algorithm>
#include <array>
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

inline std::vector<std::string> LinesOf(const ListBox& list)
{
    std::vector<std::string> lines;
    for (int line = 0; line < list.LineCount(); ++line) {
        lines.push_back(list.model()->index(line, 0).data().toString().toStdString());
    }
    return lines;
}

// Where the middle of a line is seen, once it has been brought into view.
inline QPoint PlaceOfLine(ListBox& list, int line)
{
    const QModelIndex index = list.model()->index(line, 0);
    list.scrollTo(index);
    return list.visualRect(index).center();
}

inline void ClickLine(ListBox& list, int line)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, PlaceOfLine(list, line));
}

inline void DoubleClickLine(ListBox& list, int line)
{
    ClickLine(list, line);
    QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, PlaceOfLine(list, line));
}

inline void TakeFromShelf(const Form7& form, const QString& product)
{
    const std::vector<std::string> shelf = LinesOf(*form.LIDisponibles);
    const auto line = std::find(shelf.begin(), shelf.end(), product.toStdString());
    ASSERT_NE(line, shelf.end()) << product.toStdString();
    DoubleClickLine(*form.LIDisponibles, static_cast<int>(line - shelf.begin()));
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

// The question behind a task that has ended.
inline void ExpectAgain(const QString& answer)
{
    ExpectMessage(QStringLiteral("Actividad terminada"), QStringLiteral("¿Deseas realizar de nuevo la actividad?"),
        { QStringLiteral("Sí"), QStringLiteral("No") }, answer);
}

inline void AcceptAnyBox()
{
    ExpectDialog([](QDialog& box) { box.accept(); });
}

// The questions after a new product, which both windows ask: answers for as many of them as are asked. A null one is
// cancelled.
inline void ExpectNewProduct(const std::vector<const char*>& answers)
{
    const QString title = QStringLiteral("Añadir producto");
    const std::array<QString, 3> prompts { QStringLiteral("Nombre del producto"),
        QStringLiteral("Precio del producto:"), QStringLiteral("¿En qué tiendas se vende?: ") };
    for (std::size_t i = 0; i < answers.size(); ++i) {
        if (answers[i] != nullptr) {
            ExpectInput(title, prompts.at(i), QString::fromUtf8(answers[i]));
        } else {
            ExpectInputCancelled(title, prompts.at(i), QStringLiteral("3"));
        }
    }
}

// Answers that add nothing: one is left empty, one is cancelled, or the price is no number above zero.
inline const std::vector<std::vector<const char*>>& IncompleteProducts()
{
    static const std::vector<std::vector<const char*>> answers { { "" }, { nullptr }, { "a", nullptr },
        { "a", "3", "" }, { "a", "3", nullptr }, { "a", "" }, { "a", "caro" }, { "a", "0" }, { "a", "-1" },
        { "a", "1,2,3" }, { "a", "2 euros" }, { "a", "1,5 €" }, { "a", "1e39" }, { "a", "1e400" } };
    return answers;
}

// An amount as a careful pupil writes it: whole cents, two decimals.
inline QString Written(float euros)
{
    const long cents = std::lround(euros * 100);
    return QStringLiteral("%1,%2").arg(cents / 100).arg(cents % 100, 2, 10, QLatin1Char('0'));
}

} // namespace numbrela::testing
