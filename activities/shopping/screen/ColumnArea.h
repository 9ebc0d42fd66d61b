#pragma once

#include "common/screen/TextArea.h"

namespace numbrela {

// A text area whose lines share its height evenly and stand at its right edge: a column of a written calculation.
class ColumnArea : public TextArea {
public:
    explicit ColumnArea(QWidget* parent = nullptr);

protected:
    void LayOutText() override;
};

} // namespace numbrela
