#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

// What the page offers in which the program runs, by the object Module.numbrela, whose functions have these names in
// camel case.
namespace numbrela::Page {

// The bytes of the catalogue that this browser keeps at this moment; nothing when it keeps none. The program in another
// tab may have changed them.
std::optional<std::string> StoredCatalogue();

// To be called when the program reads its catalogue anew: what it could not store before is of no use then.
void ForgetUnsaved();

// Has the browser keep these bytes, whole or not at all. Returns whether it does.
bool StoreCatalogue(const std::string& bytes);

// The places that these texts have now, in the order of a Spanish dictionary. Equal ones keep their order.
std::vector<std::size_t> SpanishOrder(const std::vector<std::string>& texts);

// Has assistive tools say a sentence, in UTF-8.
void Announce(const std::string& sentence);

} // namespace numbrela::Page
