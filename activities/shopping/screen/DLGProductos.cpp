#include "activities/shopping/screen/DLGProductos.h"

#include "activities/shopping/screen/Beep.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/screen/ListBox.h"
#include "activities/shopping/screen/NewProduct.h"
#include "common/core/RunTimeError.h"
#include "common/screen/Boxes.h"
#include "common/screen/CommandButton.h"
#include "common/screen/Controls.h"
#include "common/screen/TextBox.h"

#include <QCloseEvent>
#include <QLabel>

namespace numbrela {

namespace {

constexpr TwipsSize area { 10500, 8550 };
constexpr FontSpec formFont { "Verdana", 11 };
constexpr FontSpec listFont { "Courier New", 12 };
constexpr int mostShopCharacters = 50;
constexpr int mostNameCharacters = 100;

} // namespace

DLGProductos::DLGProductos(const Clock& clock, Shop& shop)
    : FormWindow(QStringLiteral("DLGProductos"), QStringLiteral("Productos"), area, formFont)
    , Ruta(shop.Catalogue)
    , clock_(clock)
    , shop_(shop)
{
    buildControls();
    OfferKeypad(); // for the prices: a name takes a keyboard
    refusal_.setSingleShot(true);
    connect(&refusal_, &QTimer::timeout, this, &DLGProductos::refusePrice);
    connect(List1->selectionModel(), &QItemSelectionModel::selectionChanged, this, &DLGProductos::List1_Click);
    connectButton(CBAdd, &DLGProductos::CBAdd_Click);
    connectButton(CBModif, &DLGProductos::CBModif_Click);
    connectButton(CBElim, &DLGProductos::CBElim_Click);
    connectButton(OKButton, &DLGProductos::OKButton_Click);
    connectButton(CancelButton, &DLGProductos::CancelButton_Click);
    List1->setFocus();
    Form_Load();
}

// A button pressed before the selection of a line has been refused would act on that line.
void DLGProductos::connectButton(CommandButton* button, void (DLGProductos::*click)())
{
    connect(button, &QPushButton::clicked, this, [this, click] {
        if (!refusal_.isActive()) {
            (this->*click)();
        }
    });
}

// In the order in which the eye, and so the Tab key, goes through them.
void DLGProductos::buildControls()
{
    Label1
        = AddLabel(Area(), QStringLiteral("Label1"), QStringLiteral("&Productos"), { 500, 300, 9500, 350 }, formFont);
    List1 = AddControl(Area(), new ListBox(this), QStringLiteral("List1"), { 500, 700, 9500, 5280 }, listFont);
    List1->setAccessibleName(QStringLiteral("Productos")); // a list has no name from its label
    List1->setWordWrap(false);
    List1->setUniformItemSizes(true); // so that thousands of them are laid out at once
    Label1->setBuddy(List1);

    const std::array<QString, 3> captions { QStringLiteral("&Tienda"), QStringLiteral("&Nombre"),
        QStringLiteral("Precio") };
    const std::array<int, 3> lefts { 500, 3400, 8500 };
    const std::array<int, 3> widths { 2700, 4900, 1500 };
    for (std::size_t i = 0; i < TbDatos.size(); ++i) {
        LBDatos[i] = AddLabel(
            Area(), QStringLiteral("LBDatos(%1)").arg(i), captions[i], { lefts[i], 6180, widths[i], 350 }, formFont);
        TbDatos[i] = AddTextBox(Area(), QStringLiteral("TbDatos(%1)").arg(i), { lefts[i], 6530, widths[i], 495 },
            formFont, (i < 2 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter);
        LBDatos[i]->setBuddy(TbDatos[i]);
    }
    TbDatos[0]->SetMaximumTypedLength(mostShopCharacters);
    TbDatos[1]->SetMaximumTypedLength(mostNameCharacters);

    const auto addButton = [this](const char* name, const QString& caption, int left) {
        return AddButton(Area(), QString::fromLatin1(name), caption, { left, 7530, 1650, 600 }, formFont);
    };
    CBAdd = addButton("CBAdd", QStringLiteral("&Añadir"), 500);
    CBModif = addButton("CBModif", QStringLiteral("&Modificar"), 2350);
    CBElim = addButton("CBElim", QStringLiteral("&Eliminar"), 4200);
    OKButton = addButton("OKButton", QStringLiteral("Aceptar"), 6500);
    CancelButton = addButton("CancelButton", QStringLiteral("Cancelar"), 8350);

    SetTabSequence({ List1, TbDatos[0], TbDatos[1], TbDatos[2], CBAdd, CBModif, CBElim, OKButton, CancelButton });
}

void DLGProductos::Form_Load()
{
    editor_.Load(Ruta);
    FillProductList();
}

void DLGProductos::FillProductList()
{
    std::vector<ListLine> lines;
    for (int product = 0; product < static_cast<int>(editor_.Table.size()); ++product) {
        lines.push_back({ editor_.LineText(product), product });
    }
    List1->SetSortedLines(lines);
    if (editor_.Editing) {
        SelectedLine = List1->LineOf(editor_.SelectedProduct);
    }
}

void DLGProductos::showProduct(int product, int line)
{
    editor_.Select(product);
    SelectedLine = line;
    const ProductTexts texts = editor_.TextsOf(product);
    TbDatos[0]->SetText(texts.Tienda);
    TbDatos[1]->SetText(texts.Nombre);
    TbDatos[2]->SetText(texts.Precio);
    for (TextBox* box : TbDatos) {
        box->SetCaretPosition(0); // a text that is too long for the box shows its beginning
    }
}

ProductTexts DLGProductos::boxTexts() const
{
    return { TbDatos[0]->Text(), TbDatos[1]->Text(), TbDatos[2]->Text() };
}

void DLGProductos::List1_Click()
{
    const std::optional<int> line = List1->SelectedLine();
    if (!line || (editor_.Editing && *line == SelectedLine)) {
        return;
    }
    if (!editor_.WriteBack(boxTexts())) {
        refusal_.start(0);
        return;
    }
    if (editor_.Editing) {
        List1->RewriteLine(SelectedLine, editor_.LineText(editor_.SelectedProduct));
    }
    showProduct(List1->DataOf(*line), *line);
}

// Keeps the line selected and the typed texts in the boxes, to be corrected.
void DLGProductos::refusePrice()
{
    List1->SelectLine(SelectedLine);
    TbDatos[2]->setFocus();
    TbDatos[2]->SelectWholeText();
    ShowMessage(this, "«" + TbDatos[2]->Text() + "» no es un precio. Escriba un número, por ejemplo 1,25.");
}

void DLGProductos::CBAdd_Click()
{
    AddNewProduct(this, [this](const Product& product) {
        const int index = editor_.Add(product);
        FillProductList();
        List1->SelectLine(List1->LineOf(index));
        List1->setFocus();
    });
}

void DLGProductos::CBModif_Click()
{
    const std::optional<int> line = List1->SelectedLine();
    if (!line) {
        return;
    }
    const int product = List1->DataOf(*line);
    const ProductTexts current = editor_.TextsOf(product);
    const char* title = "Modificar producto";
    const ProductTexts answers {
        .Tienda = AskText(this, "Tienda:", title, current.Tienda),
        .Nombre = AskText(this, "Nombre:", title, current.Nombre),
        .Precio = AskText(this, "Precio:", title, current.Precio),
    };
    try {
        if (editor_.Change(product, answers)) {
            showChangedProduct(product);
        }
    } catch (const RunTimeError& tooLarge) {
        ShowMessage(this, tooLarge.what());
    }
}

// Fills the boxes first: otherwise selecting the line would write the old texts of the boxes back into the product.
void DLGProductos::showChangedProduct(int product)
{
    FillProductList();
    const int line = List1->LineOf(product);
    showProduct(product, line);
    List1->SelectLine(line);
}

void DLGProductos::CBElim_Click()
{
    const std::optional<int> line = List1->SelectedLine();
    if (!line) {
        Beep();
        return;
    }
    const int next = editor_.Delete(List1->DataOf(*line), *line);
    FillProductList();
    List1->SelectLine(next);
}

// Saves the catalogue and returns whether it did. If someone else has saved it since, asks before replacing their
// version, and asks again if the file changes while the question is open.
bool DLGProductos::saveWithConsent()
{
    bool saved = editor_.Save(Ruta);
    while (!saved
        && AskYesNo(this, "El catálogo ha cambiado en el disco mientras lo modificaba. ¿Desea sustituirlo por el suyo?",
            {}, Answer::No)) {
        saved = editor_.SaveOverOthers(Ruta);
    }
    return saved;
}

void DLGProductos::OKButton_Click()
{
    try {
        if (!saveWithConsent()) {
            return;
        }
    } catch (const RunTimeError& failure) {
        ShowMessage(this, failure.what());
        return;
    }
    accepted_ = true;
    close();
}

void DLGProductos::CancelButton_Click()
{
    close();
}

// However the window closes, the shopping window takes its place; only "Aceptar" makes the main menu wait for it.
void DLGProductos::closeEvent(QCloseEvent* event)
{
    event->accept();
    hide();
    ShowShopping(*this, clock_, shop_, accepted_);
}

} // namespace numbrela
