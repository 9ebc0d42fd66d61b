#include "activities/shopping/core/ShoppingTask.h"

#include "activities/shopping/core/Money.h"
#include "common/core/Arithmetic.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace numbrela {

namespace {

// The indexes on a list, as one text. An index counts as taken if its digits occur anywhere in it: 12 rules out 1 and
// 2.
class UsedIndexes {
public:
    bool Contains(int index) const { return text_.find(std::to_string(index)) != std::string::npos; }
    void Add(int index) { text_ += std::to_string(index) + ", "; }

    bool LeavesNoneBelow(int count) const
    {
        for (int index = 0; index < count; ++index) {
            if (!Contains(index)) {
                return false;
            }
        }
        return true;
    }

private:
    std::string text_;
};

int drawUnits(RandomSource& random)
{
    if (random.Next() <= 0.5) {
        return 1;
    }
    return random.Next() < 0.6 ? 2 : 3;
}

int countShops(const std::vector<ShoppingItem>& list)
{
    std::string shopsSeen;
    int count = 0;
    for (const ShoppingItem& item : list) {
        const std::string_view shop(item.Tienda.Bytes.data(), item.Tienda.Bytes.size());
        if (shopsSeen.find(shop) == std::string::npos) {
            shopsSeen += shop;
            ++count;
        }
    }
    return count;
}

float costOf(const std::vector<ShoppingItem>& list)
{
    float cost = 0;
    for (const ShoppingItem& item : list) {
        cost += static_cast<float>(item.Units) * item.Precio;
    }
    return cost;
}

char upperCase(char windows1252)
{
    const auto code = static_cast<unsigned char>(windows1252);
    const bool hasCapital = (code >= 'a' && code <= 'z') || (code >= 0xE0 && code <= 0xFE && code != 0xF7);
    if (hasCapital) {
        return static_cast<char>(code - 0x20);
    }
    switch (code) {
    case 0x9A: // š
    case 0x9C: // œ
    case 0x9E: // ž
        return static_cast<char>(code - 0x10);
    case 0xFF: // ÿ
        return static_cast<char>(0x9F);
    default:
        return windows1252;
    }
}

// The name of a shop without blanks around it and in capitals, as names are compared.
FixedText<50> shopKey(std::string_view name)
{
    FixedText<50> key = Trimmed(name);
    std::transform(key.Bytes.begin(), key.Bytes.end(), key.Bytes.begin(), upperCase);
    return key;
}

std::string countOf(int products)
{
    return std::to_string(products) + (products == 1 ? " producto" : " productos");
}

std::string noticeOfShortList(int products, int wanted)
{
    if (products == 0) {
        return "El catálogo no tiene productos, así que la lista de la compra está vacía.\n"
               "Añade productos desde el menú Opciones y elige después «Número de productos», que hace una lista "
               "nueva.";
    }
    return "El catálogo solo tiene " + countOf(products) + ", así que la lista de la compra es de " + countOf(products)
        + " en lugar de " + std::to_string(wanted) + ".";
}

std::string amountsInBrackets(float told, float real)
{
    return "(" + PlainDecimalText(told) + " / " + PlainDecimalText(real) + ")";
}

} // namespace

std::string ShoppingTask::NewShoppingTask(RandomSource& random)
{
    constexpr int secondsPerMinute = 60;
    const int length = std::min<int>(ListLength, productCount());
    drawList(length, random);
    ListCost = costOf(ShoppingList);
    const bool affordable = std::isfinite(ListCost);
    if (!affordable) {
        ShoppingList.clear();
        ListCost = 0;
    }
    MoneyGiven = NotesAbove(ListCost);
    MoneyLeft = MoneyGiven;
    TimeLeft = (countShops(ShoppingList) * 5 + 10) * secondsPerMinute;
    if (!affordable) {
        return "La lista de la compra costaría más de lo que se puede contar, así que está vacía.\n"
               "Corrige los precios del catálogo desde el menú Opciones.";
    }
    return length < ListLength ? noticeOfShortList(length, ListLength) : std::string();
}

// An entry beside others is a product, whatever its name begins with.
int ShoppingTask::productCount() const
{
    const bool onlyTheEmptyEntry = Catalogue.size() == 1 && IsEmpty(Catalogue);
    return onlyTheEmptyEntry ? 0 : static_cast<int>(Catalogue.size());
}

// A list on which every product of the catalogue is ruled out before it is full is drawn again from the start.
void ShoppingTask::drawList(int length, RandomSource& random)
{
    const int count = productCount();
    UsedIndexes used;
    ShoppingList.clear();
    while (static_cast<int>(ShoppingList.size()) < length) {
        if (used.LeavesNoneBelow(count)) {
            used = UsedIndexes();
            ShoppingList.clear();
        }
        int product = 0;
        do {
            product = static_cast<int>(random.Next() * count);
        } while (used.Contains(product));
        used.Add(product);
        ShoppingList.push_back(itemOf(product, drawUnits(random)));
    }
}

ShoppingItem ShoppingTask::itemOf(int product, int units) const
{
    const Product& entry = Catalogue.at(static_cast<std::size_t>(product));
    return { product, units, entry.Nombre, entry.Precio, entry.Tienda };
}

bool ShoppingTask::SetListLength(std::string_view typed)
{
    const double length = LeadingNumber(typed);
    if (length > 1 && length < 11) {
        ListLength = static_cast<int>(RoundHalfToEven(length));
        return true;
    }
    return false;
}

std::vector<std::string> ShoppingTask::ListLines() const
{
    std::vector<std::string> lines;
    for (const ShoppingItem& item : ShoppingList) {
        const std::string units = item.Units < 1 ? "X" : std::to_string(item.Units);
        lines.push_back("(" + units + ") " + item.Nombre.Trimmed());
    }
    return lines;
}

std::vector<std::string> ShoppingTask::BasketLines() const
{
    std::vector<std::string> lines;
    if (!isBasketEmpty()) {
        for (const ShoppingItem& item : Basket) {
            lines.push_back(
                "(" + std::to_string(item.Units) + ") " + item.Nombre.Trimmed() + " " + PlainPriceText(item.Precio));
        }
    }
    return lines;
}

bool ShoppingTask::IsListOpen() const
{
    return std::any_of(
        ShoppingList.begin(), ShoppingList.end(), [](const ShoppingItem& item) { return item.Units > 0; });
}

std::vector<ShelfProduct> ShoppingTask::EnterShop(std::string_view shop)
{
    Basket = { ShoppingItem() };
    PayStep = 1;
    const FixedText<50> wanted = shopKey(shop);
    std::vector<ShelfProduct> shelf;
    for (std::size_t i = 0; i < Catalogue.size(); ++i) {
        if (shopKey(Catalogue[i].Tienda.Trimmed()) == wanted) {
            shelf.push_back({ static_cast<int>(i), Catalogue[i].Nombre.Trimmed() });
        }
    }
    return shelf;
}

int ShoppingTask::TakeProduct(int product)
{
    const auto line = std::find_if(
        Basket.begin(), Basket.end(), [product](const ShoppingItem& item) { return item.Product == product; });
    if (line != Basket.end()) {
        ++line->Units;
        return static_cast<int>(line - Basket.begin());
    }
    if (isBasketEmpty()) {
        Basket.clear();
    }
    Basket.push_back(itemOf(product, 1));
    return static_cast<int>(Basket.size()) - 1;
}

std::optional<int> ShoppingTask::PutBack(int line)
{
    ShoppingItem& item = Basket.at(static_cast<std::size_t>(line));
    if (item.Units > 1) {
        item.Units -= 1;
    } else if (Basket.size() > 1) {
        Basket.erase(Basket.begin() + line);
    } else {
        item.Product = -1;
        return std::nullopt;
    }
    return line < static_cast<int>(Basket.size()) ? line : 0;
}

PayOutcome ShoppingTask::Continue(std::string_view typed)
{
    switch (PayStep) {
    case 1:
        return isBasketEmpty() ? PayOutcome { .Scene = ShopScene::Centre } : beginSum();
    case 2:
        return paySum(ParsePrice(typed).value_or(0.0F));
    case 3:
        return takeChange(ParsePrice(typed).value_or(0.0F));
    default:
        return leaveWithPurchase();
    }
}

PayOutcome ShoppingTask::beginSum()
{
    BasketTotal = 0;
    for (const ShoppingItem& item : Basket) {
        for (int unit = 0; unit < item.Units; ++unit) {
            BasketTotal += item.Precio;
        }
    }
    PayStep = 2;
    return {
        .Scene = ShopScene::Sum,
        .Instructions = "Sume los precios y escriba el resultado debajo, después pulse continuar.",
    };
}

PriceColumn ShoppingTask::ColumnAboveResult() const
{
    if (PayStep == 3) {
        return { PriceText(NotesGiven) + "\n-" + PriceText(AmountPaid), 2 };
    }
    PriceColumn column;
    for (const ShoppingItem& item : Basket) {
        for (int unit = 0; unit < item.Units; ++unit) {
            column.Text += (column.Rows == 0 ? "" : "\n+") + PriceText(item.Precio);
            ++column.Rows;
        }
    }
    constexpr int mostRows = 114;
    if (column.Rows > mostRows) {
        throw RunTimeError(RunTimeError::Kind::Overflow,
            "La cesta tiene más de " + std::to_string(mostRows) + " precios: no caben en la columna.");
    }
    return column;
}

PayOutcome ShoppingTask::paySum(float sum)
{
    if (CompareMoney(sum, MoneyLeft) > 0) {
        PayStep = 1;
        return {
            .Scene = ShopScene::Shelves,
            .Message = "No tienes suficiente dinero para pagar todo lo que has cogido,  deja algo que no necesites o "
                       "pulsa el botón de volver a casa si no te queda dinero para comprar las cosas que necesitas.",
        };
    }
    const int comparison = CompareMoney(sum, BasketTotal);
    if (comparison < 0) {
        return {
            .Scene = ShopScene::Centre,
            .Message = "Parece que te has equivocado al sumar, el dependiente, pensando que le querías engañar,  te "
                       "manda fuera de la tienda sin los productos que habías cogido.\n(tu precio: "
                + PlainDecimalText(sum) + " / precio real " + PlainDecimalText(BasketTotal) + ")",
        };
    }
    AmountPaid = sum;
    NotesGiven = NotesAbove(sum);
    return beginChange(comparison == 0
            ? std::string()
            : "Parece que te has equivocado al sumar, si sigues pagando de más quizá no puedas comprar todo lo que "
              "necesitas\n"
                + amountsInBrackets(sum, BasketTotal));
}

PayOutcome ShoppingTask::beginChange(std::string message)
{
    PayStep = 3;
    return {
        .Scene = ShopScene::Change,
        .Message = std::move(message),
        .Instructions = "Has entregado " + PlainDecimalText(NotesGiven)
            + " euros en billetes para pagar tu compra, ¿Cuánto dinero te tienen que devolver?",
    };
}

PayOutcome ShoppingTask::takeChange(float change)
{
    const float due = NotesGiven - AmountPaid;
    const int comparison = CompareMoney(change, due);
    if (comparison > 0) {
        return {
            .Scene = ShopScene::Centre,
            .Message = "Parece que te has equivocado al restar, el dependiente, pensando que le querías engañar,  te "
                       "manda fuera de la tienda sin los productos que habías cogido.\n"
                + amountsInBrackets(change, due),
        };
    }
    PayStep = 4;
    PayOutcome outcome { .Scene = ShopScene::Receipt, .Instructions = receipt() };
    if (comparison < 0) {
        outcome.Message = "Parece que te has equivocado al restar, si sigues pagando de más quizá no puedas comprar "
                          "todo lo que necesitas\n"
            + amountsInBrackets(change, due);
    }
    return outcome;
}

std::string ShoppingTask::receipt() const
{
    std::string text = "Has comprado los siguientes productos:\n";
    for (const ShoppingItem& item : Basket) {
        text += "(" + std::to_string(item.Units) + ") " + item.Nombre.Text() + "\n";
    }
    return text + "Su precio es de " + PlainDecimalText(BasketTotal) + "€ y has pagado " + PlainDecimalText(AmountPaid)
        + "€ por ellos.\nPulsa el botón salir.";
}

PayOutcome ShoppingTask::leaveWithPurchase()
{
    MoneyLeft -= AmountPaid;
    for (ShoppingItem& wanted : ShoppingList) {
        for (const ShoppingItem& bought : Basket) {
            if (bought.Product == wanted.Product) {
                wanted.Units = std::max(wanted.Units - bought.Units, 0);
            }
        }
    }
    return { .Scene = ShopScene::CentreWithPurchase };
}

HomeComing ShoppingTask::GoHome() const
{
    const bool canBuyMore = std::any_of(ShoppingList.begin(), ShoppingList.end(),
        [this](const ShoppingItem& item) { return item.Units > 0 && item.Precio <= MoneyLeft; });
    if (canBuyMore) {
        return { false, "Aún puedes comprar algún producto más", "Todavía no has terminado tu tarea" };
    }
    HomeComing home { .Ended = true, .Title = "Vuelves a casa con tu compra" };
    if (IsListOpen()) {
        home.Message = "No has conseguido comprar todos los productos pedidos, gastando el dinero en otros no "
                       "necesarios o pagando más de lo debido por ellos.";
    } else {
        home.Message = "Has conseguido comprar todos los productos pedidos";
        const float ideal = MoneyGiven - ListCost;
        if (ideal == MoneyLeft) {
            home.Message += "\nHas gastado justo el dinero necesario.";
        } else if (ideal > MoneyLeft) {
            home.Message += "\npero has gastado más dinero del necesario";
        }
    }
    home.Message += TimeLeft > 0 ? "\nHas realizado la compra dentro del tiempo disponible."
                                 : "\nHas tardado demasiado en realizar la compra.";
    return home;
}

} // namespace numbrela
