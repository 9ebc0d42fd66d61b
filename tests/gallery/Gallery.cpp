#include "tests/gallery/Gallery.h"

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

void Gallery::DrawMaximised(QWidget& window, const QString& name)
{
    const QSize before = window.size();
    window.resize(1280, 800);
    Draw(window, name);
    window.resize(before);
}

} // namespace numbrela::testing
