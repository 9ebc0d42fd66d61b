#pragma once

#include "activities/shopping/core/Catalogue.h"
#include "common/core/Int16.h"

#include <string>

namespace numbrela {

// A product as text: what the edit boxes show, and what is typed into them. UTF-8.
struct ProductTexts {
    std::string Tienda;
    std::string Nombre;
    std::string Precio;

    bool operator==(const ProductTexts&) const = default;
};

// What someone who keeps the catalogue does with it: choose a product, mend it in the edit boxes, add, change and
// delete. The lines of the list, their order and their choice are the screen's; it says which line a product has.
// Nothing reaches the file before the table is saved.
class ProductEditor {
public:
    // Takes the table from the catalogue file. Throws what LoadCatalogue throws.
    void Load(const std::filesystem::path& catalogue);

    // Saves the table. False, and nothing has happened, when the file holds something else than when it was loaded or
    // last saved: somebody else has saved meanwhile. Throws what SaveCatalogue throws.
    bool Save(const std::filesystem::path& catalogue);

    // Saves it in place of what was found by the save that has just been refused. False when it is not that any more.
    bool SaveOverOthers(const std::filesystem::path& catalogue);

    // The catalogue line of a product: shop, name, price and "€" in columns.
    std::string LineText(int product) const;

    ProductTexts TextsOf(int product) const;

    // Puts the texts of the edit boxes into the product that they show, if they show one. False, and nothing has
    // changed, when their price is not a number.
    bool WriteBack(const ProductTexts& boxes);

    // From now on the edit boxes show this product, which has this line in the list.
    void Select(int product, int line);

    // Puts the product in place of the empty entry, or else at the end, and returns its index.
    // Throws RunTimeError::Overflow when the catalogue is full.
    int Add(const Product& product);

    // Takes the answers over that are not empty. The price is read as far as it is a number with "." as its only
    // decimal point: "1,25" gives 1, and "abc" gives 0, which deletes the product when the catalogue is loaded next
    // time. Whether the product is another one now. Throws RunTimeError::Overflow, and changes nothing, when the price
    // is too large.
    bool Change(int product, const ProductTexts& answers);

    // Removes the product; the only one stays with the price 0 and is gone when the catalogue is loaded next time.
    // Given its line, returns the line to choose next: the one above, or the first.
    int Delete(int product, int line);

    ProductTable Table { 1 };
    Int16 SelectedProduct; // index of the product that the edit boxes show
    Int16 SelectedLine; // its line
    bool Editing = false; // whether they show one

private:
    bool saveInPlaceOf(const CatalogueContent& content, const std::filesystem::path& catalogue);

    CatalogueContent known_; // what the file held when it was loaded or last saved
    CatalogueContent others_; // what the save that was refused found there
};

} // namespace numbrela
