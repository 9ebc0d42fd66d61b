#pragma once

#include "common/screen/Keypad.h"
#include "common/screen/TwipsLayout.h"

#include <QKeySequence>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QAction;
class QInputDialog;
class QMenu;
class QMenuBar;

namespace numbrela {

class OptionMenu;
class WindowKeypad;

// What a person has chosen in one window and finds in the others, until the program ends.
struct PersonsChoices {
    bool KeypadShown = false;
    bool FullScreen = false;
};

// A window of the program: a caption, a menu bar, and below it an area whose controls are placed in twips and grow with
// the window. It is a plain widget, not a dialog: Enter goes to the control that has the focus, and Escape closes
// nothing. F11 makes it fill the screen, and back again. Its contents and behaviour belong to the form that derives
// from it.
class FormWindow : public QWidget {
public:
    // `area` is the design size below the menu bar, in twips; `font` the font of controls that do not name one.
    FormWindow(const QString& name, const QString& caption, TwipsSize area, FontSpec font);

    // Makes this window open maximised or full-screen if `opener`, the window it is opened from or replaces, is. From
    // then on both have the same choices.
    void OpenLike(const FormWindow& opener);
    PersonsChoices& Choices() const { return *choices_; }

    // Gives an input box of this window a keypad, if the window has one.
    void LendKeypad(QInputDialog& box) const;

    // Shows the window, and destroys it when it is closed. If it is modal, every other one is inert until then.
    void Show(bool modally);

    void setVisible(bool visible) override;

    TwipsLayout& Area() const { return *area_; }

protected:
    // Makes the Tab key go through these controls in this order.
    static void SetTabSequence(const std::vector<QWidget*>& controls);

    QMenuBar* MenuBar() const { return menuBar_; }
    QMenu* AddMenu(const QString& name, const QString& caption);
    QAction* AddMenuItem(QMenu* menu, const QString& name, const QString& caption, std::function<void()> choose,
        const QKeySequence& shortcut = {});

    // A list of options (OptionMenu) in a menu; `choose` is called with the index of the chosen one.
    OptionMenu* AddOptionMenu(QMenu* menu, const QString& name, const QString& caption,
        const std::vector<QString>& itemCaptions, const std::function<void(int)>& choose);

    // For a window that has no menu and no button to leave it by: it opens maximised where others fill the screen, so
    // that a hand finds the frame to close it. F11 in it is no choice for the others.
    void KeepFrame() { keepsFrame_ = true; }

    // Gives the window a keypad with the keys that it has a use for, and a button in its menu bar that shows it.
    void OfferKeypad(KeypadKeys keys = KeypadKeys::Numbers);

    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QSize windowSizeAt(double pixelsPerTwip) const;
    void takeDesignSize();
    void takeScale(double pixelsPerTwip);
    double largestScaleOnScreen() const;
    void showWholeExtent();
    void scaleMenus(double pixelsPerTwip);
    void followChoices();
    void takeChoice();

    std::shared_ptr<PersonsChoices> choices_ = std::make_shared<PersonsChoices>();
    WindowKeypad* keypad_ = nullptr;
    QMenuBar* menuBar_;
    TwipsLayout* area_;
    TwipsRect shownExtent_;
    double wantedScale_ = 0; // what the window has, or would have if the screen had room
    double takenScale_ = 0; // what it wanted when it last took a size by itself
    QSize takenSize_;
    bool hasOwnSize_ = false;
    bool keepsFrame_ = false;
};

} // namespace numbrela
