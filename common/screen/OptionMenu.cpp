#include "common/screen/OptionMenu.h"

namespace numbrela {

std::vector<QString> CaptionsOf(const OptionList& options)
{
    std::vector<QString> captions;
    for (int index = 0; index < options.Count; ++index) {
        captions.push_back(QString::fromStdString(options.CaptionAt(index)));
    }
    return captions;
}

OptionMenu::OptionMenu(const QString& name, const QString& caption, const std::vector<QString>& itemCaptions,
    const std::function<void(int)>& choose, QWidget* parent)
    : QMenu(caption, parent)
{
    setObjectName(name);
    for (int index = 0; index < static_cast<int>(itemCaptions.size()); ++index) {
        QAction* item = addAction(itemCaptions[static_cast<std::size_t>(index)]);
        item->setObjectName(QStringLiteral("%1Lis(%2)").arg(name).arg(index));
        item->setCheckable(true);
        connect(item, &QAction::triggered, this, [item, choose, index](bool checkedByClick) {
            item->setChecked(!checkedByClick);
            choose(index);
        });
        items_.push_back(item);
    }
}

void OptionMenu::CheckOnly(int index)
{
    for (QAction* item : items_) {
        item->setChecked(false);
    }
    SetChecked(index, true);
}

void OptionMenu::SetChecked(int index, bool checked)
{
    if (index >= 0 && index < static_cast<int>(items_.size())) {
        items_[static_cast<std::size_t>(index)]->setChecked(checked);
    }
}

} // namespace numbrela
