#include "app/Form1.h"

#include "app/Activities.h"
#include "app/ButtonColumn.h"
#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/InertWindows.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>

#include <vector>

namespace numbrela {

namespace {

constexpr int formHeight = 8700; // twips
constexpr int formWidth = 5000;
constexpr int buttonWidth = 3000;
constexpr FontSpec buttonFont { "Arial", 14.25 };

const std::array<QString, 9> captions {
    QStringLiteral("&Sumas"),
    QStringLiteral("&Restas"),
    QStringLiteral("&Multiplicaciones"),
    QStringLiteral("&Divisiones"),
    QStringLiteral("&Mayor y menor"),
    QStringLiteral("&10, 100, 1000"),
    QStringLiteral("&Coloca y suma"),
    QStringLiteral("&La compra"),
    QStringLiteral("S&alir"),
};

} // namespace

Form1::Form1(const Clock& clock)
    : FormWindow(QStringLiteral("Form1"), QStringLiteral("NUMBRELA"), { formWidth, formHeight }, buttonFont)
    , clock_(clock)
{
    Form_Load();
    QAction* about = MenuBar()->addAction(QStringLiteral("&Acerca de..."), this, &Form1::MnuAce_Click);
    about->setObjectName(QStringLiteral("MnuAce"));
    MenuBar()->show();
}

// The program ends with its menu, and so do the windows that are still open.
Form1::~Form1()
{
    std::vector<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window != this && window->testAttribute(Qt::WA_DeleteOnClose)) {
            windows.push_back(window);
        }
    }
    qDeleteAll(windows);
}

void Form1::Form_Load()
{
    const ButtonColumn column = LayOutButtonColumn(formHeight, static_cast<int>(Command1.size()));
    for (std::size_t i = 0; i < Command1.size(); ++i) {
        const int index = static_cast<int>(i);
        Command1[i] = AddButton(Area(), QStringLiteral("Command1(%1)").arg(index), captions[i],
            { column.Left, column.Tops[i], buttonWidth, column.ButtonHeight }, buttonFont);
        Command1[i]->SetBackColour(i + 1 < Command1.size() ? Qt::green : Qt::red);
        connect(Command1[i], &QPushButton::clicked, this, [this, index] { Command1_Click(index); });
    }
}

void Form1::Command1_Click(int index)
{
    if (QApplication::activeModalWidget() != nullptr) { // an assistive tool, or two access keys pressed in one breath
        TurnTo(*this);
        return;
    }
    if (index >= 0 && index < static_cast<int>(activities.size())) {
        showActivity(*activities[static_cast<std::size_t>(index)](clock_));
    } else if (index == static_cast<int>(Command1.size()) - 1) {
        close();
    }
}

// The catalogue editor may have left a shopping window beside the menu, which would keep the program running.
void Form1::closeEvent(QCloseEvent* event)
{
    event->accept();
    QApplication::quit();
}

void Form1::showActivity(FormWindow& window) const
{
    if (window.isVisible()) {
        BringToFront(window);
    } else {
        window.OpenLike(*this);
        window.ShowModally();
    }
}

void Form1::MnuAce_Click()
{
    ShowMessage(this, "Numbrela, de los autores de Numbrela, 2026\r\nnumbrela@example.org");
}

} // namespace numbrela
