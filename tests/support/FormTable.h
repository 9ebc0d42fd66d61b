#pragma once

#include "common/screen/FormWindow.h"

#include <QColor>

#include <optional>
#include <vector>

namespace numbrela::testing {

// One row of the table that describes a window: what a control is and where it stands at the design size.
struct ControlRow {
    const char* Name;
    const char* Text; // text or caption, UTF-8
    TwipsRect Place;
    FontSpec Font;
    Qt::Alignment Alignment = Qt::AlignCenter; // of a text box; other controls are centred
    bool ReadOnly = false; // a text box that shows
    bool TabStop = true;
    std::optional<QColor> BackColour = std::nullopt; // of a button
    const char* AccessibleName = ""; // what a screen reader says; a button's caption says it by itself
};

// Compares a shown window of design size with its table: every control of the window is in the table and the other way
// round, rectangles in twips and in pixels, texts, fonts, colours. The rows with a tab stop stand in the order of the
// Tab key.
void ExpectControls(const FormWindow& form, const std::vector<ControlRow>& rows);

// Compares the menus with lines of the form "MnuOpc &Opciones", "  MnuOpcSal &Salir (Alt - F4)": name, caption, a
// shortcut in brackets, "*" at the end of a checked item, two blanks more for each level. A list of options whose items
// are numbers may be one line: "  MnuOpcCif &Cifras: &2 &3* &4" stands for itself and "    MnuOpcCifLis(0) &2" and so
// on.
void ExpectMenus(const FormWindow& form, const std::vector<const char*>& lines);

} // namespace numbrela::testing
