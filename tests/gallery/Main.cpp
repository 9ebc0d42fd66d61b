#include "app/Application.h"
#include "tests/gallery/Gallery.h"
#include "tests/support/Boxes.h"
#include "tests/support/Harness.h"

#include <iostream>

using namespace numbrela::testing;

// Draws every window in its telling states: numbrela_gallery <folder>
int main(int argc, char** argv)
{
    const HeadlessEnvironment environment;
    numbrela::Application application(argc, argv);
    if (argc != 2) {
        std::cerr << "usage: numbrela_gallery <folder>\n";
        return 2;
    }
    WatchForBoxes();

    Gallery gallery(QString::fromLocal8Bit(argv[1]));
    DrawMenu(gallery);
    DrawAddSub(gallery);
    DrawMultiply(gallery);
    DrawShopping(gallery);
    DrawProductEditor(gallery);
    DrawDivide(gallery);
    DrawCompare(gallery);
    DrawPowers10(gallery);
    DrawPlaceAdd(gallery);
    return gallery.Failures() == 0 && PendingBoxes() == 0 ? 0 : 1;
}
