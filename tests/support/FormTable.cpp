#include "tests/support/FormTable.h"

#include "common/screen/CommandButton.h"
#include "common/screen/KeypadSwitch.h"
#include "common/screen/TextBox.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <cmath>
#include <sstream>

namespace numbrela::testing {

namespace {

constexpr double twipsPerPixel = 15;

TwipsLayout* areaOf(const QWidget& control)
{
    return dynamic_cast<TwipsLayout*>(control.parentWidget()->layout());
}

bool isTabStop(const QWidget& control)
{
    return (control.focusPolicy() & Qt::TabFocus) != 0;
}

std::vector<QWidget*> controlsOf(const FormWindow& form)
{
    std::vector<QWidget*> controls;
    for (QWidget* widget : form.findChildren<QWidget*>()) {
        const bool isInMenuBar
            = qobject_cast<QMenuBar*>(widget) != nullptr || qobject_cast<KeypadSwitch*>(widget) != nullptr;
        if (areaOf(*widget) != nullptr && !isInMenuBar && !widget->isWindow()) {
            controls.push_back(widget);
        }
    }
    return controls;
}

void expectPlace(const QWidget& control, TwipsRect place)
{
    const TwipsLayout& area = *areaOf(control);
    EXPECT_EQ(area.RectOf(&control), place);
    const auto pixels = [](int twips) { return static_cast<int>(std::lround(twips / twipsPerPixel)); };
    // A window's area begins below its menu; a frame's at its own corner, whatever border it has.
    const TwipsRect shown = area.Extent();
    const QPoint origin = control.parentWidget()->isWindow()
        ? area.contentsRect().topLeft() - QPoint(pixels(shown.Left), pixels(shown.Top))
        : QPoint();
    EXPECT_EQ(control.x() - origin.x(), pixels(place.Left));
    EXPECT_EQ(control.y() - origin.y(), pixels(place.Top));
    EXPECT_EQ(control.width(), pixels(place.Left + place.Width) - pixels(place.Left));
    EXPECT_EQ(control.height(), pixels(place.Top + place.Height) - pixels(place.Top));
}

void expectControl(const QWidget& control, const ControlRow& row)
{
    EXPECT_EQ(TextOf(control).toStdString(), row.Text);
    expectPlace(control, row.Place);

    const FontSpec font = areaOf(control)->FontOf(&control);
    EXPECT_STREQ(font.Family, row.Font.Family);
    EXPECT_EQ(font.Points, row.Font.Points);
    EXPECT_EQ(font.Bold, row.Font.Bold);
    EXPECT_EQ(control.font().family(), QString::fromLatin1(row.Font.Family));
    constexpr double pixelsPerPoint = 20 / twipsPerPixel;
    EXPECT_EQ(control.font().pixelSize(), std::lround(row.Font.Points * pixelsPerPoint)) << "shrunk to fit its text";

    EXPECT_EQ(control.accessibleName().toStdString(), row.AccessibleName);
    EXPECT_EQ(isTabStop(control), row.TabStop);
    if (const auto* box = qobject_cast<const TextBox*>(&control)) {
        EXPECT_EQ(box->alignment(), row.Alignment);
        EXPECT_EQ(box->isReadOnly(), row.ReadOnly);
    }
    if (const auto* button = dynamic_cast<const CommandButton*>(&control); button != nullptr && row.BackColour) {
        EXPECT_EQ(button->BackColour().name(), row.BackColour->name());
    }
}

void describeMenu(const QAction& item, int level, std::vector<std::string>& lines)
{
    if (item.isSeparator()) {
        return;
    }
    const QObject* named = item.menu() != nullptr ? static_cast<const QObject*>(item.menu()) : &item;
    QString line = QString(2 * level, u' ') + named->objectName() + u' ' + item.text();
    if (!item.shortcut().isEmpty()) {
        line += QStringLiteral(" [%1]").arg(item.shortcut().toString());
    }
    if (item.isChecked()) {
        line += QStringLiteral(" *");
    }
    lines.push_back(line.toStdString());
    if (item.menu() != nullptr) {
        for (const QAction* child : item.menu()->actions()) {
            describeMenu(*child, level + 1, lines);
        }
    }
}

// The line itself or, of a list of options, one line for it and one for each item.
void spellOut(const std::string& line, std::vector<std::string>& lines)
{
    const std::size_t colon = line.find(": &");
    lines.push_back(line.substr(0, colon));
    if (colon == std::string::npos) {
        return;
    }
    const std::size_t name = line.find_first_not_of(' ');
    const std::string list = line.substr(name, line.find(' ', name) - name);
    std::istringstream items(line.substr(colon + 1));
    std::string item;
    for (int index = 0; items >> item; ++index) {
        const bool checked = item.back() == '*';
        item.resize(item.size() - (checked ? 1 : 0));
        lines.push_back(
            std::string(name + 2, ' ') + list + "Lis(" + std::to_string(index) + ") " + item + (checked ? " *" : ""));
    }
}

} // namespace

void ExpectControls(const FormWindow& form, const std::vector<ControlRow>& rows)
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // if it is still to be laid out
    const std::vector<QWidget*> controls = controlsOf(form);
    EXPECT_EQ(controls.size(), rows.size());
    for (const ControlRow& row : rows) {
        SCOPED_TRACE(row.Name);
        const auto found = std::find_if(controls.begin(), controls.end(),
            [&row](const QWidget* control) { return control->objectName() == QString::fromUtf8(row.Name); });
        if (found == controls.end()) {
            ADD_FAILURE() << "the window has no such control";
            continue;
        }
        expectControl(**found, row);
    }

    std::vector<std::string> wantedTabSequence;
    for (const ControlRow& row : rows) {
        if (row.TabStop) {
            wantedTabSequence.emplace_back(row.Name);
        }
    }
    std::vector<std::string> tabSequence;
    for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain()) {
        if (isTabStop(*next) && areaOf(*next) != nullptr) {
            tabSequence.push_back(next->objectName().toStdString());
        }
    }
    EXPECT_EQ(tabSequence, wantedTabSequence);
}

void ExpectMenus(const FormWindow& form, const std::vector<const char*>& lines)
{
    std::vector<std::string> found;
    for (const QAction* item : form.findChild<QMenuBar*>()->actions()) {
        describeMenu(*item, 0, found);
    }
    std::vector<std::string> wanted;
    for (const char* line : lines) {
        spellOut(line, wanted);
    }
    EXPECT_EQ(found, wanted);
}

} // namespace numbrela::testing
