#include "tests/monkey/Shopper.h"

#include "activities/shopping/screen/Form7.h"
#include "activities/shopping/screen/ListBox.h"
#include "activities/shopping/tests/ShopWalk.h"
#include "common/screen/TextBox.h"
#include "tests/monkey/Hands.h"

#include <algorithm>

namespace numbrela::testing {

namespace {

void click(QWidget& button, Hands& hands)
{
    hands.Click(button, button.rect().center(), Qt::LeftButton);
}

const ShoppingItem* nextWanted(const Form7& form)
{
    const std::vector<ShoppingItem>& list = form.Task().ShoppingList;
    const auto wanted = std::find_if(list.begin(), list.end(), [](const ShoppingItem& item) { return item.Units > 0; });
    return wanted == list.end() ? nullptr : &*wanted;
}

void walk(const Form7& form, Hands& hands, Chance& chance)
{
    const ShoppingItem* wanted = nextWanted(form);
    if (wanted == nullptr) {
        click(*form.CBVolver, hands);
        return;
    }
    const auto shop = std::find_if(form.CBTienda.begin(), form.CBTienda.end(),
        [wanted](const CommandButton* button) { return button->text().toStdString() == wanted->Tienda.Trimmed(); });
    click(shop == form.CBTienda.end() ? *chance.OneOf(form.CBTienda) : **shop, hands);
}

bool isInBasket(const Form7& form, int product)
{
    const std::vector<ShoppingItem>& basket = form.Task().Basket;
    return std::any_of(
        basket.begin(), basket.end(), [product](const ShoppingItem& item) { return item.Product == product; });
}

void fillBasket(const Form7& form, Hands& hands, Chance& chance)
{
    for (const ShoppingItem& wanted : form.Task().ShoppingList) {
        const std::vector<std::string> lines = LinesOf(*form.LIDisponibles);
        const auto line = std::find(lines.begin(), lines.end(), wanted.Nombre.Trimmed());
        if (line != lines.end() && wanted.Units > 0 && !isInBasket(form, wanted.Product)) {
            const QPoint place = PlaceOfLine(*form.LIDisponibles, static_cast<int>(line - lines.begin()));
            for (int unit = 0; unit < wanted.Units; ++unit) {
                hands.DoubleClick(*form.LIDisponibles->viewport(), place);
            }
            return;
        }
    }
    if (chance.Percent(90)) {
        click(*form.CbContinuar, hands);
    }
}

void pay(const Form7& form, float right, Hands& hands, Chance& chance)
{
    const QString answer = chance.Percent(80) ? Written(right) : SensibleNumber(chance);
    QString lastDigitFirst;
    for (const QChar character : answer) {
        lastDigitFirst.prepend(character);
    }
    click(*form.TbResultado, hands);
    hands.Press(KeyFor(u'a'), Qt::ControlModifier);
    hands.Press({ Qt::Key_Delete });
    hands.Type(lastDigitFirst);
    click(*form.CbContinuar, hands);
}

} // namespace

void ShopOn(const Form7& form, Hands& hands, Chance& chance)
{
    const ShoppingTask& task = form.Task();
    if (form.Frame2->isVisible()) {
        walk(form, hands, chance);
    } else if (task.PayStep == 1) {
        fillBasket(form, hands, chance);
    } else if (task.PayStep == 2) {
        pay(form, task.BasketTotal, hands, chance);
    } else if (task.PayStep == 3) {
        pay(form, task.NotesGiven - task.AmountPaid, hands, chance);
    } else {
        click(*form.CbContinuar, hands);
    }
}

} // namespace numbrela::testing
