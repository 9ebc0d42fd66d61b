#pragma once

#include "common/screen/TwipsLayout.h"

class QLabel;

namespace numbrela {

class CommandButton;
class TextBox;

// Fill an area with controls. Each function makes a control that belongs to the area, names it and puts it in its
// place.

// Adds a control of any other kind, made by the caller.
template <typename Control>
Control* AddControl(TwipsLayout& area, Control* control, const QString& name, TwipsRect place, FontSpec font)
{
    control->setObjectName(name);
    area.Place(control, place, font);
    return control;
}

TextBox* AddTextBox(
    TwipsLayout& area, const QString& name, TwipsRect place, FontSpec font, Qt::Alignment alignment = Qt::AlignCenter);

// A text box that shows and takes no typing; `spokenName` is what a screen reader calls it.
TextBox* AddReadOnlyBox(TwipsLayout& area, const QString& name, const QString& spokenName, TwipsRect place,
    FontSpec font, Qt::Alignment alignment = Qt::AlignCenter);

CommandButton* AddButton(
    TwipsLayout& area, const QString& name, const QString& caption, TwipsRect place, FontSpec font);

QLabel* AddLabel(TwipsLayout& area, const QString& name, const QString& caption, TwipsRect place, FontSpec font);

// A frame, whose controls stand at places counted from its own upper left corner. Returns its area; the frame itself is
// that area's parentWidget().
TwipsLayout* AddFrame(TwipsLayout& area, const QString& name, TwipsRect place, FontSpec font);

} // namespace numbrela
