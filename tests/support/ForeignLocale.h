#pragma once

#include <clocale>
#include <locale>
#include <string>

namespace numbrela::testing {

// Puts the process under the locales of other countries for as long as it lives.
class ForeignLocale {
public:
    ForeignLocale(const char* name, const std::locale& global)
        : nameBefore_(std::setlocale(LC_ALL, nullptr))
        , globalBefore_(std::locale::global(global))
    {
        // Last, because a global locale that has a name sets this one too. Not installed, it changes nothing.
        std::setlocale(LC_ALL, name);
    }
    ~ForeignLocale()
    {
        std::locale::global(globalBefore_);
        std::setlocale(LC_ALL, nameBefore_.c_str());
    }
    ForeignLocale(const ForeignLocale&) = delete;
    ForeignLocale& operator=(const ForeignLocale&) = delete;

private:
    std::string nameBefore_;
    std::locale globalBefore_;
};

class StrangePunctuation : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ';'; }
    char do_thousands_sep() const override { return '\''; }
    std::string do_grouping() const override { return "\1"; }
};

} // namespace numbrela::testing
