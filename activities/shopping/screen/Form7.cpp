#include "activities/shopping/screen/Form7.h"

#include "activities/shopping/core/Money.h"
#include "activities/shopping/screen/Beep.h"
#include "activities/shopping/screen/ColumnArea.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/screen/ListBox.h"
#include "activities/shopping/screen/NewProduct.h"
#include "common/core/RunTimeError.h"
#include "common/screen/Announcement.h"
#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/Line.h"
#include "common/screen/TextBox.h"

#include <QEvent>
#include <QFrame>
#include <QLabel>
#include <QMenu>
#include <QTimer>

#include <algorithm>
#include <utility>

namespace numbrela {

namespace {

constexpr TwipsSize areaSize { 15000, 9000 };
constexpr TwipsRect listFrame { 300, 300, 4500, 8400 };
constexpr TwipsRect centreFrame { 6150, 1000, 7500, 7000 };
constexpr TwipsRect shopFrame { 5100, 300, 9600, 8400 };

constexpr FontSpec formFont { "Arial", 12 };
constexpr FontSpec headingFont { "Arial", 18, true };
constexpr FontSpec valueFont { "Arial", 18 };
constexpr FontSpec longNameFont { "Arial", 9.75 }; // a shop's name that its button would cut off at 12 points
constexpr FontSpec instructionFont { "Verdana", 12 };
constexpr FontSpec columnFont { "Courier New", 12 };

// The column of prices grows upwards from the rule below it.
constexpr int columnLeft = 6240;
constexpr int columnWidth = 1800;
constexpr int columnBottom = 7540;
constexpr int rowHeight = 285;
constexpr int ruleY = columnBottom + 15;

// The places of the three controls that are always visible in a shop, but move while the pupil pays.
struct ShopPlaces {
    TwipsRect Sign;
    TwipsRect Instructions;
    TwipsRect Continue;
};

// The instructions are below the shelf or, while the pupil pays, beside the lower end of the column. The sign then
// fills the room above them, but not above the column, which can grow to any height. A receipt takes most of that room
// from the sign, so that it can be read whole.
constexpr ShopPlaces atTheShelf { { 240, 180, 9120, 540 }, { 240, 4830, 4440, 2610 }, { 240, 7620, 4440, 540 } };
constexpr ShopPlaces atTheTill { { 1560, 180, 4440, 5580 }, { 1560, 5940, 4440, 1500 }, { 1560, 7620, 4440, 540 } };
constexpr ShopPlaces withTheReceipt { { 1560, 180, 4440, 540 }, { 1560, 900, 4440, 6540 }, { 1560, 7620, 4440, 540 } };

// The ring of shops, clockwise.
struct ShopDesign {
    int Left;
    int Top;
    QColor Colour;
    FontSpec Font = formFont;
};

const std::array<ShopDesign, 10> ring { {
    { 1500, 500, QColor(255, 255, 216) },
    { 3000, 500, QColor(255, 255, 196) },
    { 4500, 500, QColor(255, 255, 176) },
    { 6000, 2000, QColor(255, 216, 255) },
    { 6000, 3500, QColor(255, 196, 255) },
    { 4500, 5000, QColor(236, 255, 255) },
    { 3000, 5000, QColor(216, 255, 255) },
    { 1500, 5000, QColor(196, 255, 255) },
    { 0, 3500, QColor(255, 236, 236) },
    { 0, 2000, QColor(255, 216, 216), longNameFont },
} };

const QColor plazaColour(232, 245, 220);

void paint(QLabel& sign, const QColor& colour)
{
    QPalette palette = sign.palette();
    palette.setColor(QPalette::Window, colour);
    palette.setColor(QPalette::WindowText, Qt::black);
    sign.setPalette(palette);
    sign.setAutoFillBackground(true);
}

// A label whose access key gives the focus to whatever stands in for the control below it, which a plain QLabel does
// only for a control that takes the focus itself.
class FocusingLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::Shortcut) {
            buddy()->setFocus(Qt::ShortcutFocusReason);
            return true;
        }
        return QLabel::event(event);
    }
};

// A caption above a control, whose access key gives the control the focus.
QLabel* addCaption(TwipsLayout& area, const QString& name, const QString& caption, TwipsRect place, QWidget* control)
{
    QLabel* label = AddLabel(area, name, caption, place, formFont);
    label->setBuddy(control);
    return label;
}

// The same above a list, which needs an accessible name: a screen reader takes the caption only of a text box.
QLabel* addListCaption(TwipsLayout& area, const QString& name, const QString& caption, TwipsRect place, ListBox* list)
{
    list->setAccessibleName(QString(caption).remove(u'&'));
    return addCaption(area, name, caption, place, list);
}

void placeInShop(const Form7& form, QWidget* control, TwipsRect place)
{
    static_cast<TwipsLayout*>(form.Frame3->layout())->Move(control, place);
}

void arrangeShop(const Form7& form, const ShopPlaces& places)
{
    placeInShop(form, form.Label3, places.Sign);
    placeInShop(form, form.TbInstrucciones, places.Instructions);
    placeInShop(form, form.CbContinuar, places.Continue);
}

QFrame* frameOf(const TwipsLayout& area)
{
    return static_cast<QFrame*>(area.parentWidget());
}

// The prices under each other, each with its sign before it, in one sentence.
QString spokenColumn(const PriceColumn& column)
{
    QString line = QString::fromStdString(column.Text);
    line.replace(QStringLiteral("\n+"), QStringLiteral(" + ")).replace(QStringLiteral("\n-"), QStringLiteral(" - "));
    return InWords(line.simplified());
}

} // namespace

Form7::Form7(const Clock& clock, Shop& shop)
    : FormWindow(QStringLiteral("Form7"), QStringLiteral("La compra"), areaSize, formFont)
    , Timer1(new QTimer(this))
    , clock_(clock)
    , shop_(shop)
{
    Timer1->setInterval(1000);
    Timer1->setTimerType(Qt::PreciseTimer);
    connect(Timer1, &QTimer::timeout, this, &Form7::Timer1_Timer);
    buildFrame1();
    buildFrame2();
    buildFrame3();
    buildMenus();
    OfferKeypad();
    Form_Load();
}

void Form7::Form_Load()
{
    loadCatalogue();
    newShoppingTask();
    List1->setFocus();
}

void Form7::buildFrame1()
{
    TwipsLayout& area = *AddFrame(Area(), QStringLiteral("Frame1"), listFrame, formFont);
    Frame1 = frameOf(area);
    List1 = AddControl(area, new ListBox(Frame1), QStringLiteral("List1"), { 240, 600, 4020, 4350 }, formFont);
    Label1[0] = addListCaption(
        area, QStringLiteral("Label1(0)"), QStringLiteral("&Lista de la compra"), { 240, 180, 4020, 360 }, List1);

    TBTiempo = AddReadOnlyBox(area, QStringLiteral("TBTiempo"), {}, { 240, 5580, 4020, 600 }, valueFont);
    Label1[1] = addCaption(
        area, QStringLiteral("Label1(1)"), QStringLiteral("&Tiempo disponible"), { 240, 5160, 4020, 360 }, TBTiempo);

    TBDinero = AddReadOnlyBox(area, QStringLiteral("TBDinero"), {}, { 240, 6780, 4020, 600 }, valueFont);
    Label1[2] = addCaption(
        area, QStringLiteral("Label1(2)"), QStringLiteral("&Dinero disponible"), { 240, 6360, 4020, 360 }, TBDinero);

    CBVolver = AddButton(
        area, QStringLiteral("CBVolver"), QStringLiteral("&Volver a casa"), { 240, 7620, 4020, 540 }, formFont);
    CBVolver->SetBackColour(Qt::green);
    connect(CBVolver, &QPushButton::clicked, this, &Form7::CBVolver_Click);
}

void Form7::buildFrame2()
{
    constexpr int shopSize = 1500;
    TwipsLayout& area = *AddFrame(Area(), QStringLiteral("Frame2"), centreFrame, formFont);
    Frame2 = frameOf(area);
    Frame2->setFrameShape(QFrame::NoFrame);
    for (std::size_t i = 0; i < CBTienda.size(); ++i) {
        const int index = static_cast<int>(i);
        CBTienda[i]
            = AddButton(area, QStringLiteral("CBTienda(%1)").arg(index), QString::fromUtf8(ShoppingTask::ShopNames[i]),
                { ring[i].Left, ring[i].Top, shopSize, shopSize }, ring[i].Font);
        CBTienda[i]->SetBackColour(ring[i].Colour);
        connect(CBTienda[i], &QPushButton::clicked, this, [this, index] { CBTienda_Click(index); });
    }
    Label2 = AddControl(area, new FocusingLabel(QStringLiteral("&El centro comercial"), Frame2),
        QStringLiteral("Label2"), { 1500, 2000, 4500, 3000 }, headingFont);
    Label2->setAlignment(Qt::AlignCenter);
    paint(*Label2, plazaColour);
    Frame2->setFocusProxy(CBTienda[0]);
    Label2->setBuddy(Frame2); // of a shop, it would be a name: a screen reader would say it before that of the shop
}

void Form7::buildFrame3()
{
    TwipsLayout& area = *AddFrame(Area(), QStringLiteral("Frame3"), shopFrame, formFont);
    Frame3 = frameOf(area);
    Frame3->hide();
    Label3 = AddLabel(area, QStringLiteral("Label3"), {}, atTheShelf.Sign, headingFont);

    LIDisponibles
        = AddControl(area, new ListBox(Frame3), QStringLiteral("LIDisponibles"), { 240, 1320, 4440, 3270 }, formFont);
    connect(LIDisponibles, &ListBox::doubleClicked, this, &Form7::LIDisponibles_DblClick);
    HandleKeys(*LIDisponibles, { .KeyDown = [this](const Key& key) { return LIDisponibles_KeyDown(key); } });
    LBDisponibles = addListCaption(area, QStringLiteral("LBDisponibles"), QStringLiteral("&Productos disponibles"),
        { 240, 900, 4440, 360 }, LIDisponibles);

    LICesta = AddControl(area, new ListBox(Frame3), QStringLiteral("LICesta"), { 4920, 1320, 4440, 6840 }, formFont);
    connect(LICesta, &ListBox::doubleClicked, this, &Form7::LICesta_DblClick);
    HandleKeys(*LICesta, { .KeyDown = [this](const Key& key) { return LICesta_KeyDown(key); } });
    LbCesta = addListCaption(
        area, QStringLiteral("LbCesta"), QStringLiteral("C&esta de la compra"), { 4920, 900, 4440, 360 }, LICesta);

    TbInstrucciones = AddControl(
        area, new TextArea(Frame3), QStringLiteral("TbInstrucciones"), atTheShelf.Instructions, instructionFont);
    TbInstrucciones->setAccessibleName(QStringLiteral("Instrucciones"));

    TBCantidades = AddControl(area, new ColumnArea(Frame3), QStringLiteral("TBCantidades"),
        { columnLeft, columnBottom, columnWidth, 0 }, columnFont);
    TBCantidades->setAccessibleName(QStringLiteral("Cantidades"));
    Line1 = new Line(area, QStringLiteral("Line1"), { columnLeft, ruleY }, { columnLeft + columnWidth, ruleY });
    TbResultado = AddTextBox(area, QStringLiteral("TbResultado"), { columnLeft, 7620, columnWidth, 540 }, columnFont,
        Qt::AlignRight | Qt::AlignVCenter);
    TbResultado->setAccessibleName(QStringLiteral("Resultado"));
    HandleKeys(*TbResultado, { .KeyPress = [this](QChar character) { return TbResultado_KeyPress(character); } });
    showColumn(false);

    CbContinuar
        = AddButton(area, QStringLiteral("CbContinuar"), QStringLiteral("&Continuar"), atTheShelf.Continue, formFont);
    CbContinuar->SetBackColour(Qt::cyan);
    connect(CbContinuar, &QPushButton::clicked, this, &Form7::CbContinuar_Click);
}

void Form7::buildMenus()
{
    QMenu* options = AddMenu(QStringLiteral("MnuOpc"), QStringLiteral("&Opciones"));
    AddMenuItem(
        options, QStringLiteral("MnuOpcNum"), QStringLiteral("&Número de productos"), [this] { MnuOpcNum_Click(); });
    AddMenuItem(options, QStringLiteral("MnuOpcUni"), QStringLiteral("Nú&mero de unidades"), [] {});
    AddMenuItem(
        options, QStringLiteral("MnuOpcPro"), QStringLiteral("&Productos..."), [this] { MnuOpcPro_Click(); },
        Qt::Key_F3);
    AddMenuItem(
        options, QStringLiteral("MnuOpcAdd"), QStringLiteral("&Añadir producto"), [this] { MnuOpcAdd_Click(); },
        Qt::Key_F2);
    AddMenuItem(
        options, QStringLiteral("MnuOpcSal"), QStringLiteral("&Salir (Alt - f4)"), [this] { MnuOpcSal_Click(); });
}

void Form7::loadCatalogue()
{
    try {
        task_.Catalogue = LoadCatalogue(shop_.Catalogue);
    } catch (const RunTimeError& error) {
        if (error.ErrorKind() != RunTimeError::Kind::File) {
            throw;
        }
        showMessageOnceVisible(error.what());
    }
}

void Form7::newShoppingTask()
{
    SeededRandom random(clock_.Now().SeedProduct());
    const std::string notice = task_.NewShoppingTask(random);
    showList();
    TBDinero->SetText(PurseText(task_.MoneyGiven));
    TBTiempo->SetText(TimeText(task_.TimeLeft));
    if (task_.ShoppingList.empty()) {
        Timer1->stop();
    } else {
        Timer1->start();
    }
    AnnounceContents(*TBDinero);
    AnnounceContents(*TBTiempo);
    if (!notice.empty()) {
        showMessageOnceVisible(notice);
    }
}

void Form7::showList()
{
    List1->SetLines(task_.ListLines());
    List1->SelectLine(0);
}

void Form7::showBasket(std::optional<int> selectedLine)
{
    LICesta->SetLines(task_.BasketLines());
    if (selectedLine) {
        LICesta->SelectLine(*selectedLine);
    }
}

void Form7::showChangedBasket(std::optional<int> changedLine)
{
    showBasket(changedLine);
    Announce(*LICesta, [this, changedLine] {
        const QString line = changedLine ? LICesta->TextOf(*changedLine) : QStringLiteral("vacía");
        return LICesta->accessibleName() + QStringLiteral(": ") + line;
    });
}

void Form7::showShelves(bool shown)
{
    for (QWidget* control : std::initializer_list<QWidget*> { LBDisponibles, LIDisponibles, LbCesta, LICesta }) {
        control->setEnabled(shown);
        control->setVisible(shown);
    }
}

void Form7::showColumn(bool shown)
{
    for (QWidget* control : std::initializer_list<QWidget*> { TBCantidades, Line1, TbResultado }) {
        control->setVisible(shown);
    }
}

void Form7::showInstructions(const std::string& text)
{
    TbInstrucciones->SetText(text);
    TbInstrucciones->SelectWholeText();
    Announce(*TbInstrucciones, TbInstrucciones->toPlainText());
}

void Form7::CBTienda_Click(int index)
{
    const auto i = static_cast<std::size_t>(index);
    Label3->setText(CBTienda[i]->text());
    paint(*Label3, ring[i].Colour);
    showShelves(true);
    std::vector<ListLine> shelf;
    for (const ShelfProduct& product : task_.EnterShop(CBTienda[i]->text().toStdString())) {
        shelf.push_back({ product.Name, product.Product });
    }
    LIDisponibles->SetSortedLines(shelf);
    LIDisponibles->scrollToTop();
    showBasket(std::nullopt);

    arrangeShop(*this, atTheShelf);
    Announce(*Label3, Label3->text());
    showInstructions("Coloque en la cesta los productos que necesite de esta tienda y pulse el botón de continuar");
    Frame3->show();
    LIDisponibles->setFocus(); // before the shops vanish, or the focus would jump elsewhere first
    Frame2->hide();
}

void Form7::LIDisponibles_DblClick()
{
    const std::optional<int> line = LIDisponibles->SelectedLine();
    if (!line) {
        Beep();
        return;
    }
    showChangedBasket(task_.TakeProduct(LIDisponibles->DataOf(*line)));
}

KeyAnswer Form7::LIDisponibles_KeyDown(const Key& key)
{
    if (key.Code != KeyCode::Enter) {
        return KeyAnswer::GoesOn();
    }
    LIDisponibles_DblClick();
    return KeyAnswer::Consumed();
}

void Form7::LICesta_DblClick()
{
    if (const std::optional<int> line = LICesta->SelectedLine()) {
        Announce(*LICesta, [this, line] {
            const QString product = LICesta->TextOf(*line).section(u' ', 1); // without its number
            return QStringLiteral("Devuelto: ") + product;
        });
        showChangedBasket(task_.PutBack(*line));
    }
}

// However long a key is held, it puts one product back.
KeyAnswer Form7::LICesta_KeyDown(const Key& key)
{
    if (key.Code != KeyCode::Enter && key.Code != KeyCode::Delete) {
        return KeyAnswer::GoesOn();
    }
    if (!key.Repeated) {
        LICesta_DblClick();
    }
    return KeyAnswer::Consumed();
}

void Form7::CbContinuar_Click()
{
    const PayOutcome outcome = task_.Continue(TbResultado->Text());
    if (!outcome.Message.empty()) {
        ShowMessage(this, outcome.Message, "Error");
    }
    switch (outcome.Scene) {
    case ShopScene::Shelves:
        arrangeShop(*this, atTheShelf);
        showShelves(true);
        LICesta->setFocus();
        showColumn(false);
        break;
    case ShopScene::Sum:
        showColumn(true);
        askForResult(outcome);
        showShelves(false);
        break;
    case ShopScene::Change:
        askForResult(outcome);
        break;
    case ShopScene::Receipt:
        CbContinuar->setText(QStringLiteral("&Salir"));
        arrangeShop(*this, withTheReceipt);
        showInstructions(outcome.Instructions);
        CbContinuar->setFocus();
        break;
    case ShopScene::Centre:
        backToCentre();
        break;
    case ShopScene::CentreWithPurchase:
        leaveWithPurchase();
        break;
    }
}

void Form7::askForResult(const PayOutcome& outcome)
{
    const PriceColumn column = task_.ColumnAboveResult();
    arrangeShop(*this, atTheTill);
    const int height = column.Rows * rowHeight;
    placeInShop(*this, TBCantidades, { columnLeft, columnBottom - height, columnWidth, height });
    TBCantidades->SetText(column.Text);
    showInstructions(outcome.Instructions);
    Announce(*TBCantidades, [&column] { return spokenColumn(column); });
    TbResultado->setFocus();
    TbResultado->SetText("");
}

void Form7::backToCentre()
{
    task_.LeaveShop();
    List1->setFocus();
    Frame3->hide();
    Frame2->show();
    showColumn(false);
}

void Form7::leaveWithPurchase()
{
    CbContinuar->setText(QStringLiteral("&Continuar"));
    backToCentre();
    showList();
    TBDinero->SetText(RemainderText(task_.MoneyLeft));
    AnnounceContents(*TBDinero);
    if (!task_.IsListOpen()) {
        ShowMessage(this, "Pulse el botón Volver a casa", "Compra terminada");
    }
}

void Form7::CBVolver_Click()
{
    const HomeComing home = task_.GoHome();
    if (home.Ended) {
        Timer1->stop();
    }
    ShowMessage(this, home.Message, home.Title);
    if (!home.Ended) {
        return;
    }
    if (AskYesNo(this, "¿Deseas realizar de nuevo la actividad?", "Actividad terminada")) {
        newShoppingTask();
        List1->setFocus();
    } else {
        close();
    }
}

// Sums of money are typed on the keypad, whose decimal key writes a point on many keyboards; thousands are not grouped.
KeyAnswer Form7::TbResultado_KeyPress(QChar character)
{
    TbResultado->StepCaretLeft(); // the result is written from its last digit to its first
    return character == u'.' ? KeyAnswer::Replaced(u',') : KeyAnswer::GoesOn();
}

void Form7::Timer1_Timer()
{
    task_.Tick();
    TBTiempo->SetText(TimeText(task_.TimeLeft));
}

void Form7::MnuOpcNum_Click()
{
    const std::string typed
        = AskText(this, "Número de productos a mostrar (1 - 10):", "¿Cuántos productos incluir en la lista?",
            std::to_string(task_.ListLength));
    if (task_.SetListLength(typed)) {
        newShoppingTask();
    }
}

void Form7::MnuOpcAdd_Click()
{
    AddNewProduct(this, [this](const Product& product) { AddProduct(task_.Catalogue, product); });
}

// Opens the editor first: closing the last window would end the program.
void Form7::MnuOpcPro_Click()
{
    ShowEditor(*this, clock_, shop_);
    close();
}

void Form7::MnuOpcSal_Click()
{
    close();
}

void Form7::showEvent(QShowEvent* event)
{
    FormWindow::showEvent(event);
    QTimer::singleShot(0, this, &Form7::showWaitingMessage);
}

void Form7::showMessageOnceVisible(const std::string& text)
{
    if (isVisible()) {
        ShowMessage(this, text);
    } else {
        waitingMessage_ += (waitingMessage_.empty() ? "" : "\n\n") + text;
    }
}

void Form7::showWaitingMessage()
{
    if (!waitingMessage_.empty()) {
        ShowMessage(this, std::exchange(waitingMessage_, {}));
    }
}

} // namespace numbrela
