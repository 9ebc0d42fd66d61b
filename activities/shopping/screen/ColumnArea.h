#pragma once

#include "common/screen/TextArea.h"

namespace numbrela {

// A text area for a column of a written calculation: its lines share the height evenly and are right-aligned.
class ColumnArea : public TextArea {
public:
    explicit ColumnArea(QWidget* parent = nullptr);

protected:
    void LayOutText() override;
};

} // namespace numbrela
