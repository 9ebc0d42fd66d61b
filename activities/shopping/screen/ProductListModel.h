#pragma once

#include "activities/shopping/core/ProductEditor.h"

#include <QAbstractListModel>
#include <QCollator>

#include <optional>
#include <vector>

namespace numbrela {

// The lines of the catalogue editor's list: one for each product, sorted as Spanish sorts when the list is filled. A
// line that is rewritten stays where it is until the list is filled again. Filling it again after a few products have
// changed costs little, however many there are: the other lines are known.
class ProductListModel : public QAbstractListModel {
public:
    explicit ProductListModel(QObject* parent = nullptr);

    void Fill(const ProductEditor& editor);
    void Rewrite(int line, const ProductEditor& editor);

    // Which product a line is about, and where the line of a product stands.
    int ProductAt(int line) const { return order_.at(static_cast<std::size_t>(line)); }
    int LineOf(int product) const;

    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    // A product as it was when its line was written.
    struct Entry {
        Product Source;
        QString Text;
        std::optional<QCollatorSortKey> Key; // missing while the line does not stand where its text belongs
    };

    Entry entryOf(const ProductEditor& editor, int product) const;
    void takeOver(const ProductEditor& editor);
    void sortLines();

    QCollator collator_;
    std::vector<Entry> entries_; // by product
    std::vector<int> order_; // the product of each line
};

} // namespace numbrela
