#include "common/core/web/Page.h"

#include <emscripten/val.h>

#include <cstdint>

namespace numbrela::Page {

namespace {

using emscripten::val;

val page()
{
    return val::module_property("numbrela");
}

} // namespace

std::optional<std::string> StoredCatalogue()
{
    const val stored = page().call<val>("storedCatalogue");
    if (stored.isNull()) {
        return std::nullopt;
    }
    std::string bytes(stored["length"].as<std::size_t>(), '\0');
    val(emscripten::typed_memory_view(bytes.size(), bytes.data())).call<void>("set", stored);
    return bytes;
}

void ForgetUnsaved()
{
    page().call<void>("forgetUnsaved");
}

bool StoreCatalogue(const std::string& bytes)
{
    const auto* const first = reinterpret_cast<const std::uint8_t*>(bytes.data());
    const val view(emscripten::typed_memory_view(bytes.size(), first));
    return page().call<bool>("storeCatalogue", val::global("Uint8Array").new_(view)); // a copy that is the page's
}

std::vector<std::size_t> SpanishOrder(const std::vector<std::string>& texts)
{
    return emscripten::convertJSArrayToNumberVector<std::size_t>(page().call<val>("spanishOrder", val::array(texts)));
}

void Announce(const std::string& sentence)
{
    page().call<void>("announce", sentence);
}

} // namespace numbrela::Page
