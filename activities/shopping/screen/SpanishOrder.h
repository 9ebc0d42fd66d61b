#pragma once

#include <QCollator>

namespace numbrela {

// The order in which sorted lists stand: as a Spanish dictionary, ñ behind n, accents and case of no weight.
inline QCollator SpanishOrder()
{
    QCollator order(QLocale(QLocale::Spanish, QLocale::Spain));
    order.setCaseSensitivity(Qt::CaseInsensitive);
    return order;
}

} // namespace numbrela
