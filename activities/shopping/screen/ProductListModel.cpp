#include "activities/shopping/screen/ProductListModel.h"

#include "activities/shopping/screen/SpanishOrder.h"

#include <algorithm>

namespace numbrela {

ProductListModel::ProductListModel(QObject* parent)
    : QAbstractListModel(parent)
    , collator_(SpanishOrder())
{
}

void ProductListModel::Fill(const ProductEditor& editor)
{
    beginResetModel();
    takeOver(editor);
    sortLines();
    endResetModel();
}

void ProductListModel::Rewrite(int line, const ProductEditor& editor)
{
    const int product = ProductAt(line);
    entries_[static_cast<std::size_t>(product)] = entryOf(editor, product);
    const QModelIndex changed = index(line);
    Q_EMIT dataChanged(changed, changed);
}

int ProductListModel::LineOf(int product) const
{
    return static_cast<int>(std::find(order_.begin(), order_.end(), product) - order_.begin());
}

int ProductListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(order_.size());
}

QVariant ProductListModel::data(const QModelIndex& index, int role) const
{
    const int product = ProductAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return entries_[static_cast<std::size_t>(product)].Text;
    case Qt::UserRole:
        return product;
    default:
        return {};
    }
}

ProductListModel::Entry ProductListModel::entryOf(const ProductEditor& editor, int product) const
{
    return { editor.Table[static_cast<std::size_t>(product)], QString::fromStdString(editor.LineText(product)),
        std::nullopt };
}

// Keeps the entries of the products before the first one that has changed and behind the last one, makes those between
// anew, and lets the lines follow the products that they are about.
void ProductListModel::takeOver(const ProductEditor& editor)
{
    const ProductTable& table = editor.Table;
    const auto isWritten = [](const Entry& entry, const Product& product) { return entry.Source == product; };
    const auto firstChanged = std::mismatch(entries_.begin(), entries_.end(), table.begin(), table.end(), isWritten);
    const auto behindChanged = std::mismatch(entries_.rbegin(), std::make_reverse_iterator(firstChanged.first),
        table.rbegin(), std::make_reverse_iterator(firstChanged.second), isWritten);

    const int first = static_cast<int>(firstChanged.second - table.begin());
    const int behindOld = static_cast<int>(behindChanged.first.base() - entries_.begin());
    const int behindNew = static_cast<int>(behindChanged.second.base() - table.begin());

    std::vector<Entry> changed;
    for (int product = first; product < behindNew; ++product) {
        changed.push_back(entryOf(editor, product));
    }
    entries_.erase(firstChanged.first, behindChanged.first.base());
    entries_.insert(
        entries_.begin() + first, std::make_move_iterator(changed.begin()), std::make_move_iterator(changed.end()));

    order_.erase(std::remove_if(order_.begin(), order_.end(),
                     [=](int product) { return product >= first && product < behindOld; }),
        order_.end());
    for (int& product : order_) {
        product += product >= behindOld ? behindNew - behindOld : 0;
    }
    for (int product = first; product < behindNew; ++product) {
        order_.push_back(product);
    }
}

// The lines that stand where they belong are in order among themselves; the others are sorted and merged with them.
void ProductListModel::sortLines()
{
    const auto entryFor = [this](int product) -> Entry& { return entries_[static_cast<std::size_t>(product)]; };
    const auto isBefore = [&](int left, int right) {
        const int order = entryFor(left).Key->compare(*entryFor(right).Key);
        return order != 0 ? order < 0 : left < right;
    };
    const auto unsorted = std::stable_partition(
        order_.begin(), order_.end(), [&](int product) { return entryFor(product).Key.has_value(); });
    std::for_each(unsorted, order_.end(),
        [&](int product) { entryFor(product).Key = collator_.sortKey(entryFor(product).Text); });
    std::sort(unsorted, order_.end(), isBefore);
    std::inplace_merge(order_.begin(), unsorted, order_.end(), isBefore);
}

} // namespace numbrela
