#pragma once

#include <optional>
#include <string>

// What the page offers in which the program runs, by the object Module.numbrela, whose functions have these names in
// camel case.
namespace numbrela::Page {

// The bytes of the catalogue that this browser keeps at this moment; nothing when it keeps none. The program in another
// tab may have changed them.
std::optional<std::string> StoredCatalogue();

// Has the browser keep these bytes, whole or not at all. Returns whether it does.
bool StoreCatalogue(const std::string& bytes);

// Has assistive tools say a sentence, in UTF-8.
void Announce(const std::string& sentence);

} // namespace numbrela::Page
