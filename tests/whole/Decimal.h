#pragma once

#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <QString>

#include <algorithm>

// Schoolbook arithmetic on what the screens show, independent of the program.
namespace numbrela::testing {

// 57 with 1 decimal place is 5,7.
struct Decimal {
    long long Digits = 0;
    int Places = 0;
};

// Reads "1.234,5".
inline Decimal ReadDecimal(QString text)
{
    text = text.trimmed().remove(u'.');
    const auto comma = text.indexOf(u',');
    const int places = comma < 0 ? 0 : static_cast<int>(text.size() - comma) - 1;
    bool isNumber = false;
    const long long digits = text.remove(u',').toLongLong(&isNumber);
    EXPECT_TRUE(isNumber) << text.toStdString();
    return { digits, places };
}

// Writes all the places it has: "5,70".
inline QString WriteDecimal(Decimal number)
{
    return QString::fromStdString(CommaText(number.Digits, number.Places));
}

// The same number with more places.
inline Decimal WithPlaces(Decimal number, int places)
{
    while (number.Places < places) {
        number.Digits *= 10;
        ++number.Places;
    }
    return number;
}

inline Decimal operator+(Decimal a, Decimal b)
{
    const int places = std::max(a.Places, b.Places);
    return { WithPlaces(a, places).Digits + WithPlaces(b, places).Digits, places };
}

inline Decimal operator-(Decimal a, Decimal b)
{
    return a + Decimal { -b.Digits, b.Places };
}

inline Decimal operator*(Decimal a, Decimal b)
{
    return { a.Digits * b.Digits, a.Places + b.Places };
}

inline Decimal DividedByTen(Decimal number)
{
    return { number.Digits, number.Places + 1 };
}

} // namespace numbrela::testing
