#pragma once

#include <QWidget>

#include <array>

namespace numbrela::testing {

// Gets to see every window of the program in its telling states. The deriving class decides what to do with them.
class Gallery {
public:
    virtual ~Gallery() = default;

    // Takes a part of the window as it stands; each state has a name of its own.
    virtual void DrawPart(QWidget& window, const QRect& part, const QString& name) = 0;

    // Takes a part of it and a little of what is around.
    void DrawAround(QWidget& window, const QRect& part, const QString& name);

    // Takes the whole of it.
    void Draw(QWidget& window, const QString& name);

    // Takes it at both sizes, the second time with "-maximised" behind the name.
    void DrawBoth(QWidget& window, const QString& name);

    // Takes it as it fills a projector of 1280 by 800 pixels.
    void DrawMaximised(QWidget& window, const QString& name);

    // Takes it with its keypad on the screen, which floats over the window or stands beside the calculation, at the
    // present size and as it fills a small screen, a projector and a panel.
    void DrawWithKeypad(QWidget& window, const QString& name);

    // Takes the next box that opens, which is then left without an answer.
    void DrawNextBox(const QString& name);
};

// Shows the keypad of a window, or hides it.
void SwitchKeypad(const QWidget& window);

// One function for each room of the program.
void DrawMenu(Gallery& gallery);
void DrawAddSub(Gallery& gallery);
void DrawMultiply(Gallery& gallery);
void DrawShopping(Gallery& gallery);
void DrawProductEditor(Gallery& gallery);
void DrawDivide(Gallery& gallery);
void DrawCompare(Gallery& gallery);
void DrawPlaceAdd(Gallery& gallery);
void DrawPowers10(Gallery& gallery);

struct GalleryRoom {
    const char* Name;
    void (*Draw)(Gallery& gallery);
};

extern const std::array<GalleryRoom, 9> galleryRooms;

} // namespace numbrela::testing
