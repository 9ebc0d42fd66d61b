#pragma once

#include "common/screen/TextArea.h"

namespace numbrela {

// A text area whose lines share its height evenly and stand at its right edge: a column of a written calculation.
class ColumnArea : public TextArea {
public:
    explicit ColumnArea(QWidget* parent = nullptr);

    void SetText(const std::string& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void layOutRows();
};

} // namespace numbrela
