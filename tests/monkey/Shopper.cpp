#include "tests/monkey/Shopper.h"

#include "activities/shopping/screen/Form7.h"
#include "activities/shopping/screen/ListBox.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "tests/monkey/Texts.h"

#include <algorithm>

namespace numbrela::testing {

namespace {

const ShoppingItem* nextWanted(const Form7& form)
{
    const std::vector<ShoppingItem>& list = form.Task().ShoppingList;
    const auto wanted = std::find_if(list.begin(), list.end(), [](const ShoppingItem& item) { return item.Units > 0; });
    return wanted == list.end() ? nullptr : &*wanted;
}

void walk(const Form7& form, Chance& chance)
{
    const ShoppingItem* wanted = nextWanted(form);
    if (wanted == nullptr) {
        Click(form, QStringLiteral("CBVolver"));
        return;
    }
    const auto shop = std::find_if(form.CBTienda.begin(), form.CBTienda.end(),
        [wanted](const CommandButton* button) { return button->text().toStdString() == wanted->Tienda.Trimmed(); });
    GoInto(form, (shop == form.CBTienda.end() ? chance.OneOf(form.CBTienda) : *shop)->text());
}

bool isInBasket(const Form7& form, int product)
{
    const std::vector<ShoppingItem>& basket = form.Task().Basket;
    return std::any_of(
        basket.begin(), basket.end(), [product](const ShoppingItem& item) { return item.Product == product; });
}

void fillBasket(const Form7& form, Chance& chance)
{
    for (const ShoppingItem& wanted : form.Task().ShoppingList) {
        const std::vector<std::string> lines = LinesOf(*form.LIDisponibles);
        const auto line = std::find(lines.begin(), lines.end(), wanted.Nombre.Trimmed());
        if (line != lines.end() && wanted.Units > 0 && !isInBasket(form, wanted.Product)) {
            for (int unit = 0; unit < wanted.Units; ++unit) {
                TakeFromShelf(form, QString::fromStdString(*line));
            }
            return;
        }
    }
    if (chance.Percent(90)) {
        PressContinue(form);
    }
}

void pay(const Form7& form, float right, Chance& chance)
{
    Click(form, QStringLiteral("TbResultado"));
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Delete);
    TypeResult(chance.Percent(80) ? Written(right) : SensibleNumber(chance));
    PressContinue(form);
}

} // namespace

void ShopOn(const Form7& form, Chance& chance)
{
    const ShoppingTask& task = form.Task();
    if (form.Frame2->isVisible()) {
        walk(form, chance);
    } else if (task.PayStep == 1) {
        fillBasket(form, chance);
    } else if (task.PayStep == 2) {
        pay(form, task.BasketTotal, chance);
    } else if (task.PayStep == 3) {
        pay(form, task.NotesGiven - task.AmountPaid, chance);
    } else {
        PressContinue(form);
    }
}

} // namespace numbrela::testing
