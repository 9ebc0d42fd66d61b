#pragma once

#include <QCollator>

namespace numbrela {

// The order in which sorted lists stand: as a Spanish dictionary, ñ behind n, case of no weight, accents only
// where the letters are the same.
inline QCollator SpanishOrder()
{
    QCollator order(QLocale(QLocale::Spanish, QLocale::Spain));
    order.setCaseSensitivity(Qt::CaseInsensitive);
    return order;
}

} // namespace numbrela
