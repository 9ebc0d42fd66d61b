#include "app/Form1.h"

#include "app/ButtonColumn.h"
#include "app/ProgramRun.h"
#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/InertWindows.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>

namespace numbrela {

namespace {

constexpr int formHeight = 8700; // twips
constexpr int formWidth = 5000;
constexpr int buttonWidth = 3000;
constexpr FontSpec buttonFont { "Arial", 14.25 };

} // namespace

Form1::Form1(ProgramRun& run)
    : FormWindow(QStringLiteral("Form1"), QStringLiteral("NUMBRELA"), { formWidth, formHeight }, buttonFont)
    , run_(run)
{
    Form_Load();
    QAction* about = MenuBar()->addAction(QStringLiteral("&Acerca de..."), this, &Form1::MnuAce_Click);
    about->setObjectName(QStringLiteral("MnuAce"));
    MenuBar()->show();
}

// The program ends with its menu, and so do the windows that are still open.
Form1::~Form1()
{
    delete activity_;
    EndShop(run_.Shopping);
}

void Form1::Form_Load()
{
    const ButtonColumn column = LayOutButtonColumn(formHeight, static_cast<int>(Command1.size()));
    for (std::size_t i = 0; i < Command1.size(); ++i) {
        const int index = static_cast<int>(i);
        const bool opens = i < activities.size();
        Command1[i] = AddButton(Area(), QStringLiteral("Command1(%1)").arg(index),
            opens ? activities[i].Caption : QStringLiteral("S&alir"),
            { column.Left, column.Tops[i], buttonWidth, column.ButtonHeight }, buttonFont);
        Command1[i]->SetBackColour(opens ? Qt::green : Qt::red);
        connect(Command1[i], &QPushButton::clicked, this, [this, index] { Command1_Click(index); });
    }
}

void Form1::Command1_Click(int index)
{
    // An assistive tool can press a button of the inert menu, and two access keys can be pressed almost at once.
    if (QApplication::activeModalWidget() != nullptr) {
        BringBackWindowBlocking(*this);
        return;
    }
    if (index >= 0 && index < static_cast<int>(activities.size())) {
        activity_ = activities[static_cast<std::size_t>(index)].Window(run_);
        showActivity();
    } else if (index == static_cast<int>(Command1.size()) - 1) {
        close();
    }
}

// A window that is open beside the menu would keep the program running.
void Form1::closeEvent(QCloseEvent* event)
{
    event->accept();
    QApplication::quit();
}

void Form1::showActivity() const
{
    if (activity_->isVisible()) {
        BringToFront(*activity_);
    } else {
        activity_->OpenLike(*this);
        activity_->Show(true);
    }
}

void Form1::MnuAce_Click()
{
    ShowMessage(this, "Numbrela, de los autores de Numbrela, 2026\r\nnumbrela@example.org");
}

} // namespace numbrela
