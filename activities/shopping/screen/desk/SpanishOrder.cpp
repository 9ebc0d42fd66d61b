#include "activities/shopping/screen/SpanishOrder.h"

#include <QCollator>
#include <QStringList>

#include <algorithm>
#include <numeric>

namespace numbrela {

// On Windows, Qt takes the Spanish of Spain for the order that dictionaries had until 1994, in which CH and LL are
// letters of their own. Its sort keys are not in the order of its comparisons there, so none are made.
std::vector<std::size_t> SpanishOrder(const std::vector<std::string>& texts)
{
    QCollator spanish(QLocale(QLocale::Spanish, QLocale::Mexico));
    spanish.setCaseSensitivity(Qt::CaseInsensitive);
    std::vector<QString> converted;
    for (const std::string& text : texts) {
        converted.push_back(QString::fromStdString(text));
    }
    std::vector<std::size_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t { 0 });
    std::stable_sort(order.begin(), order.end(),
        [&](std::size_t one, std::size_t other) { return spanish.compare(converted[one], converted[other]) < 0; });
    return order;
}

} // namespace numbrela
