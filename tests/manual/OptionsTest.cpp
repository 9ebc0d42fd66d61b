#include "tests/manual/Pages.h"
#include "tests/program/Program.h"
#include "tests/program/ShippedCatalogue.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QMenu>
#include <QMenuBar>
#include <QTemporaryDir>

namespace numbrela::testing {

namespace {

using Row = std::vector<std::string>;

const Row titles { "Opción", "Tecla", "Valores", "Al abrir", "Para qué sirve" };
const std::string nothing = "–";

std::string captionOf(const QAction& action)
{
    return Collapsed(action.text().remove(QChar(u'&')).toStdString());
}

// "0 a 6" are numbers; other values are quoted: "«Cualquiera», «Seleccionar ()...»".
std::string valuesOf(const QMenu& menu)
{
    const std::string first = captionOf(*menu.actions().front());
    const std::string last = captionOf(*menu.actions().back());
    bool isNumber = false;
    static_cast<void>(QString::fromStdString(first).toInt(&isNumber));
    return isNumber ? first + " a " + last : "«" + first + "», «" + last + "»";
}

std::string checkedIn(const QMenu& menu)
{
    for (const QAction* item : menu.actions()) {
        if (item->isChecked()) {
            const std::string caption = captionOf(*item);
            return caption.find_first_not_of("0123456789") == std::string::npos ? caption : "«" + caption + "»";
        }
    }
    return nothing;
}

// All rows that the menus of a window make, but for what the options are good for.
std::vector<Row> optionsOf(const QWidget& window)
{
    std::vector<Row> rows;
    for (const QMenuBar* bar : window.findChildren<QMenuBar*>()) {
        for (const QAction* top : bar->actions()) {
            for (const QAction* item : top->menu() == nullptr ? QList<QAction*>() : top->menu()->actions()) {
                const std::string key = item->shortcut().toString().toStdString();
                const QMenu* list = item->menu();
                rows.push_back({ "«" + captionOf(*item) + "»", key.empty() ? nothing : key,
                    list == nullptr ? nothing : valuesOf(*list), list == nullptr ? nothing : checkedIn(*list) });
            }
        }
    }
    return rows;
}

// The table of options below the heading; none where there is not exactly one.
const ManualTable* optionTable(const std::string& heading)
{
    const ManualTable* found = nullptr;
    for (const Page& page : Pages()) {
        for (const ManualTable& table : page.Tables) {
            if (table.Heading == heading && table.Rows.front() == titles) {
                EXPECT_EQ(found, nullptr) << table.Place << " has a second table of options for " << heading;
                found = &table;
            }
        }
    }
    return found;
}

TEST(ManualOptionsTest, EachOptionOfEachWindowStandsInItsTableWithItsValues)
{
    const QTemporaryDir folder;
    const std::filesystem::path catalogue = folder.filePath(QStringLiteral("productos.dat")).toStdString();
    SaveShippedCatalogue(catalogue);
    Program program(catalogue);
    for (const Route& route : routes) {
        if (route.MenuButton < 0 || route.Item != nullptr) {
            continue;
        }
        const std::string button = "Command1(" + std::to_string(route.MenuButton) + ")";
        const std::string heading = TextOf(Find<QWidget>(program.Menu(), button)).remove(QChar(u'&')).toStdString();
        program.Open(route);
        const std::vector<Row> options = optionsOf(*Program::Window(QString::fromLatin1(route.Window)));
        program.CloseAll();

        const ManualTable* table = optionTable(heading);
        ASSERT_EQ(table != nullptr, !options.empty()) << heading;
        if (table == nullptr) {
            continue;
        }
        ASSERT_EQ(table->Rows.size(), options.size() + 1) << table->Place;
        for (std::size_t index = 0; index < options.size(); ++index) {
            Row row = table->Rows[index + 1];
            ASSERT_EQ(row.size(), titles.size()) << table->Place;
            EXPECT_FALSE(row.back().empty()) << table->Place << ", " << row.front();
            row.pop_back();
            EXPECT_EQ(row, options[index]) << table->Place;
        }
    }
}

} // namespace

} // namespace numbrela::testing
