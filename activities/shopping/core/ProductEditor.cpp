#include "activities/shopping/core/ProductEditor.h"

#include "activities/shopping/core/Money.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace numbrela {

namespace {

constexpr std::size_t tiendaColumn = 18; // characters
constexpr std::size_t nombreColumn = 30;

// A text that was never set has NUL characters, tabs and line ends may have been pasted, and a soft hyphen is
// invisible.
bool wouldShiftTheColumns(char byte)
{
    constexpr unsigned char softHyphen = 0xAD;
    const auto value = static_cast<unsigned char>(byte);
    return value < ' ' || value == softHyphen;
}

template <int Width>
std::string column(const FixedText<Width>& text, std::size_t characters)
{
    std::string beginning(text.Bytes.data(), characters);
    std::replace_if(beginning.begin(), beginning.end(), wouldShiftTheColumns, ' ');
    return Utf8FromWindows1252(beginning);
}

} // namespace

void ProductEditor::Load(const std::filesystem::path& catalogue)
{
    Table = LoadCatalogue(catalogue, known_);
}

bool ProductEditor::Save(const std::filesystem::path& catalogue)
{
    return saveInPlaceOf(known_, catalogue);
}

bool ProductEditor::SaveOverOthers(const std::filesystem::path& catalogue)
{
    return saveInPlaceOf(others_, catalogue);
}

bool ProductEditor::saveInPlaceOf(const CatalogueContent& content, const std::filesystem::path& catalogue)
{
    SaveOutcome outcome = SaveCatalogueIfUnchanged(catalogue, Table, content);
    (outcome.Saved ? known_ : others_) = std::move(outcome.Content);
    return outcome.Saved;
}

std::string ProductEditor::LineText(int product) const
{
    const Product& entry = Table.at(static_cast<std::size_t>(product));
    return column(entry.Tienda, tiendaColumn) + column(entry.Nombre, nombreColumn) + " " + PlainPriceText(entry.Precio)
        + "€";
}

ProductTexts ProductEditor::TextsOf(int product) const
{
    const Product& entry = Table.at(static_cast<std::size_t>(product));
    return { entry.Tienda.Trimmed(), entry.Nombre.Trimmed(), PlainPriceText(entry.Precio) };
}

bool ProductEditor::WriteBack(const ProductTexts& boxes)
{
    if (!Editing) {
        return true;
    }
    Product& entry = Table.at(static_cast<std::size_t>(SelectedProduct));
    const bool untouched = !std::isfinite(entry.Precio) && boxes.Precio == PlainPriceText(entry.Precio);
    const std::optional<float> price = untouched ? entry.Precio : ParsePrice(boxes.Precio);
    if (!price) {
        return false;
    }
    entry = { .Nombre = Trimmed(boxes.Nombre), .Precio = *price, .Tienda = Trimmed(boxes.Tienda) };
    return true;
}

void ProductEditor::Select(int product)
{
    SelectedProduct = product;
    Editing = true;
}

int ProductEditor::Add(const Product& product)
{
    const bool replaces = IsEmpty(Table);
    const int index = AddProduct(Table, product);
    Editing = Editing && !(replaces && SelectedProduct == index);
    return index;
}

bool ProductEditor::Change(int product, const ProductTexts& answers)
{
    Product changed = Table.at(static_cast<std::size_t>(product));
    if (!answers.Tienda.empty()) {
        changed.Tienda = Trimmed(answers.Tienda);
    }
    if (!answers.Nombre.empty()) {
        changed.Nombre = Trimmed(answers.Nombre);
    }
    if (!answers.Precio.empty()) {
        const std::optional<float> price = LeadingPrice(answers.Precio);
        if (!price) {
            throw RunTimeError(RunTimeError::Kind::Overflow, "El precio «" + answers.Precio + "» es demasiado grande.");
        }
        changed.Precio = *price;
    }
    Product& entry = Table.at(static_cast<std::size_t>(product));
    const bool isAnother = entry != changed;
    entry = changed;
    return isAnother;
}

int ProductEditor::Delete(int product, int line)
{
    if (Table.size() == 1) {
        Table.front().Precio = 0;
    } else {
        Table.erase(Table.begin() + product);
    }
    Editing = false;
    const int lastLine = static_cast<int>(Table.size()) - 1;
    return std::clamp(line - 1, 0, lastLine);
}

} // namespace numbrela
