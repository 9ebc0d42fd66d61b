#include "activities/shopping/screen/DLGProductos.h"
#include "activities/shopping/screen/Handover.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "common/screen/TextBox.h"
#include "tests/gallery/Gallery.h"
#include "tests/program/ShippedCatalogue.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"

#include <QDialog>
#include <QTemporaryDir>
#include <QTest>

namespace numbrela::testing {

namespace {

void drawShippedCatalogue(Gallery& gallery, const Clock& clock, Shop& shop)
{
    SaveShippedCatalogue(shop.Catalogue);
    DLGProductos form(clock, shop);
    ShowAndActivate(form);
    gallery.Draw(form, QStringLiteral("products-fresh"));

    ClickLine(*form.List1, 6);
    gallery.Draw(form, QStringLiteral("products-selected"));
    gallery.DrawMaximised(form, QStringLiteral("products-maximised"));

    for (const char* detail : { "shop", "name", "price" }) {
        gallery.DrawNextBox(QStringLiteral("products-change-") + QString::fromLatin1(detail));
    }
    Click(form, "CBModif");
    form.TbDatos[2]->setFocus();
    gallery.DrawWithKeypad(form, QStringLiteral("products-keypad"));

    form.TbDatos[1]->SetText("Un nombre tan largo que se escribe más pequeño");
    form.TbDatos[2]->SetText("gratis");
    ExpectDialog([&](QDialog& box) {
        gallery.Draw(box, QStringLiteral("products-refused-box"));
        gallery.Draw(form, QStringLiteral("products-refused"));
        box.reject();
    });
    ClickLine(*form.List1, 7);
    EXPECT_TRUE(QTest::qWaitFor([] { return PendingBoxes() == 0; }));

    SaveCatalogue(shop.Catalogue, ProductTable(1)); // as somebody else does
    gallery.DrawNextBox(QStringLiteral("products-changed-by-others"));
    Click(form, "OKButton");
    form.hide();
}

void drawEmptyCatalogue(Gallery& gallery, const Clock& clock, Shop& shop)
{
    SaveCatalogue(shop.Catalogue, ProductTable(1));
    DLGProductos form(clock, shop);
    ShowAndActivate(form);
    gallery.Draw(form, QStringLiteral("products-empty"));
    form.hide();
}

} // namespace

void DrawProductEditor(Gallery& gallery)
{
    const FixedClock clock;
    const QTemporaryDir folder;
    Shop shop { folder.filePath(QStringLiteral("productos.dat")).toStdString() };
    drawShippedCatalogue(gallery, clock, shop);
    drawEmptyCatalogue(gallery, clock, shop);
}

} // namespace numbrela::testing
