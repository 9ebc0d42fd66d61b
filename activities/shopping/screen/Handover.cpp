#include "activities/shopping/screen/Handover.h"

#include "activities/shopping/screen/DLGProductos.h"
#include "activities/shopping/screen/Form7.h"
#include "common/core/RunTimeError.h"

namespace numbrela {

namespace {

FormWindow* makeShopping(const Clock& clock, Shop& shop)
{
    shop.Window = new Form7(clock, shop);
    return shop.Window;
}

// The window deletes itself when it is closed.
void showInPlaceOf(const FormWindow& before, FormWindow& window, bool modally)
{
    window.OpenLike(before);
    window.Show(modally);
}

} // namespace

FormWindow* OpenOrMakeShopping(const Clock& clock, Shop& shop)
{
    return shop.Window != nullptr && shop.Window->isVisible() ? shop.Window.data() : makeShopping(clock, shop);
}

void ShowShopping(const FormWindow& before, const Clock& clock, Shop& shop, bool modally)
{
    showInPlaceOf(before, *makeShopping(clock, shop), modally);
}

void ShowEditor(const FormWindow& before, const Clock& clock, Shop& shop)
{
    try {
        shop.Window = new DLGProductos(clock, shop);
    } catch (const RunTimeError& failure) {
        if (failure.ErrorKind() != RunTimeError::Kind::File) {
            throw;
        }
        ShowShopping(before, clock, shop, false); // it meets the same failure, and shows it
        return;
    }
    showInPlaceOf(before, *shop.Window, true);
}

void EndShop(Shop& shop)
{
    delete shop.Window;
}

} // namespace numbrela
