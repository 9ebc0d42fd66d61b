#include "activities/shopping/screen/ColumnArea.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "activities/shopping/tests/StillClocks.h"
#include "activities/shopping/tests/TemporaryFolder.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/program/ShippedCatalogue.h"
#include "tests/support/Boxes.h"
#include "tests/support/FixedClock.h"
#include "tests/support/Shown.h"

#include <QDialog>

#include <algorithm>

namespace numbrela::testing {

namespace {

void buyWhatIsListedIn(const Form7& form, const QString& shop)
{
    GoInto(form, shop);
    for (const ShoppingItem& wanted : form.Task().ShoppingList) {
        for (int unit = 0; QString::fromStdString(wanted.Tienda.Trimmed()) == shop && unit < wanted.Units; ++unit) {
            TakeFromShelf(form, QString::fromStdString(wanted.Nombre.Trimmed()));
        }
    }
}

bool needs(const Form7& form, std::string_view shop)
{
    const std::vector<ShoppingItem>& list = form.Task().ShoppingList;
    return std::any_of(list.begin(), list.end(),
        [shop](const ShoppingItem& item) { return item.Units > 0 && item.Tienda.Trimmed() == shop; });
}

bool needsOnly(const Form7& form, std::string_view shop)
{
    return std::none_of(ShoppingTask::ShopNames.begin(), ShoppingTask::ShopNames.end(),
        [&](const char* other) { return other != shop && needs(form, other); });
}

void pay(const Form7& form)
{
    PressContinue(form);
    TypeResult(Written(form.Task().BasketTotal));
    PressContinue(form);
    TypeResult(Written(form.Task().NotesGiven - form.Task().AmountPaid));
    PressContinue(form);
}

// What is to be worked out at the till and where it is written.
QRect tillOf(const Form7& form)
{
    return PlaceIn(form, form.TbInstrucciones) | PlaceIn(form, form.TBCantidades) | PlaceIn(form, form.TbResultado)
        | PlaceIn(form, form.CbContinuar);
}

void drawVisit(Gallery& gallery, Form7& form)
{
    buyWhatIsListedIn(form, QStringLiteral("Librería"));
    gallery.DrawBoth(form, QStringLiteral("shopping-shop"));
    PressContinue(form);
    TypeResult(",30");
    gallery.DrawBoth(form, QStringLiteral("shopping-adding"));
    gallery.DrawAround(form, tillOf(form), QStringLiteral("shopping-adding-part"));
    gallery.DrawWithKeypad(form, QStringLiteral("shopping-keypad"));
    Press(Qt::Key_Home);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Delete);
    TypeResult(Written(form.Task().BasketTotal));
    PressContinue(form);
    TypeResult(Written(form.Task().NotesGiven - form.Task().AmountPaid));
    gallery.DrawBoth(form, QStringLiteral("shopping-change"));
    gallery.DrawAround(form, tillOf(form), QStringLiteral("shopping-change-part"));
    PressContinue(form);
    gallery.DrawBoth(form, QStringLiteral("shopping-receipt"));
    PressContinue(form);
}

void drawLongColumn(Gallery& gallery, Form7& form)
{
    GoInto(form, QStringLiteral("Kiosko"));
    for (int unit = 0; unit < 34; ++unit) {
        DoubleClickLine(*form.LIDisponibles, unit % 3);
    }
    PressContinue(form);
    gallery.DrawBoth(form, QStringLiteral("shopping-long-column"));
    ExpectDialog([](QDialog& box) { box.accept(); });
    PressContinue(form);
}

void drawVerdict(Gallery& gallery, Form7& form)
{
    for (const char* shop : ShoppingTask::ShopNames) {
        if (!needs(form, shop)) {
            continue;
        }
        buyWhatIsListedIn(form, QString::fromUtf8(shop));
        pay(form);
        if (needsOnly(form, shop)) {
            ExpectDialog([](QDialog& box) { box.accept(); });
        }
        PressContinue(form);
    }
    gallery.Draw(form, QStringLiteral("shopping-bought"));
    gallery.DrawNextBox(QStringLiteral("shopping-verdict"));
    gallery.DrawNextBox(QStringLiteral("shopping-again"));
    Click(form, "CBVolver");
}

} // namespace

void DrawShopping(Gallery& gallery)
{
    const TemporaryFolder folder;
    const FixedClock clock({ 10, 12, 30, 36750 });
    const StillClocks stillClocks;
    Shop shop { folder / "productos.dat" };
    SaveShippedCatalogue(shop.Catalogue);
    {
        Form7 form(clock, shop);
        ShowAndActivate(form);
        gallery.Draw(form, QStringLiteral("shopping-centre"));
        gallery.DrawMaximised(form, QStringLiteral("shopping-maximised"));
        gallery.DrawNextBox(QStringLiteral("shopping-how-many"));
        Choose(form, "MnuOpcNum");
        gallery.DrawNextBox(QStringLiteral("shopping-new-product"));
        Choose(form, "MnuOpcAdd");
        drawVisit(gallery, form);
        drawLongColumn(gallery, form);
    }
    {
        Form7 form(clock, shop);
        ShowAndActivate(form);
        drawVerdict(gallery, form);
    }
    gallery.DrawNextBox(QStringLiteral("shopping-empty-catalogue-message"));
    shop.Catalogue = folder / "none.dat";
    Form7 form(clock, shop);
    ShowAndAnswerBoxes(form);
    gallery.Draw(form, QStringLiteral("shopping-empty-catalogue"));
}

} // namespace numbrela::testing
