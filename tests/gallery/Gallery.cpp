#include "tests/gallery/Gallery.h"

#include "common/screen/KeypadSwitch.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <QDialog>

namespace numbrela::testing {

const std::array<GalleryRoom, 9> galleryRooms { {
    { "Menu", &DrawMenu },
    { "AddSub", &DrawAddSub },
    { "Multiply", &DrawMultiply },
    { "Shopping", &DrawShopping },
    { "ProductEditor", &DrawProductEditor },
    { "Divide", &DrawDivide },
    { "Compare", &DrawCompare },
    { "Powers10", &DrawPowers10 },
    { "PlaceAdd", &DrawPlaceAdd },
} };

void Gallery::DrawAround(QWidget& window, const QRect& part, const QString& name)
{
    constexpr int margin = 12; // pixels
    DrawPart(window, part.adjusted(-margin, -margin, margin, margin), name);
}

void Gallery::Draw(QWidget& window, const QString& name)
{
    const QRect whole(QPoint(0, 0), QSize(-1, -1)); // also of a window whose size is not settled yet
    DrawPart(window, whole, name);
}

void Gallery::DrawBoth(QWidget& window, const QString& name)
{
    Draw(window, name);
    DrawMaximised(window, name + QStringLiteral("-maximised"));
}

void Gallery::DrawMaximised(QWidget& window, const QString& name)
{
    const QSize before = window.size();
    window.resize(1280, 800);
    Draw(window, name);
    window.resize(before);
}

void Gallery::DrawWithKeypad(QWidget& window, const QString& name)
{
    const QSize before = window.size();
    SwitchKeypad(window);
    Draw(window, name);
    for (const QSize filled : { QSize(800, 480), QSize(1280, 800), QSize(1920, 1080) }) {
        window.resize(filled);
        Draw(window, QStringLiteral("%1-%2x%3").arg(name).arg(filled.width()).arg(filled.height()));
    }
    window.resize(before);
    SwitchKeypad(window);
}

void SwitchKeypad(const QWidget& window)
{
    window.findChild<KeypadSwitch*>()->click();
}

void Gallery::DrawNextBox(const QString& name)
{
    ExpectDialog([this, name](QDialog& box) {
        Draw(box, name);
        box.reject();
    });
}

} // namespace numbrela::testing
