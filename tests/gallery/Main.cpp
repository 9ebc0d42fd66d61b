#include "app/Application.h"
#include "tests/gallery/Gallery.h"
#include "tests/gallery/Writing.h"
#include "tests/support/Boxes.h"
#include "tests/support/Harness.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QPixmap>

#include <fstream>
#include <iostream>

using namespace numbrela::testing;

namespace {

// Draws every state to a PNG file of its name, and writes a text file of what is written in it, all in one folder.
class Pictures : public Gallery {
public:
    explicit Pictures(const QString& folder)
        : folder_(folder)
    {
        folder_.mkpath(QStringLiteral("."));
    }

    void DrawPart(QWidget& window, const QRect& part, const QString& name) override
    {
        QCoreApplication::processEvents(); // let the layout settle
        const std::string path = folder_.filePath(name).toStdString();
        std::ofstream writing(path + ".txt");
        writing << WritingIn(window) << std::flush;
        if (!writing || !window.grab(part).save(QString::fromStdString(path + ".png"))) {
            std::cerr << "cannot write " << path << '\n';
            ++failures_;
        }
    }

    // How many pictures could not be written.
    int Failures() const { return failures_; }

private:
    QDir folder_;
    int failures_ = 0;
};

} // namespace

// Draws every window in its telling states: numbrela_gallery <folder>
int main(int argc, char** argv)
{
    const HeadlessEnvironment environment;
    AbortOnWarnings();
    numbrela::Application application(argc, argv);
    if (argc != 2 || *argv[1] == '-') { // a folder of such a name is a mistyped option
        std::cerr << "usage: numbrela_gallery <folder>\n";
        return 2;
    }
    WatchForBoxes();

    Pictures pictures(QString::fromLocal8Bit(argv[1]));
    for (const GalleryRoom& room : galleryRooms) {
        room.Draw(pictures);
    }
    // A box that nobody expected, or a control that is not there, is a failed check.
    const bool asExpected = PendingBoxes() == 0 && !::testing::UnitTest::GetInstance()->Failed();
    return pictures.Failures() == 0 && asExpected ? 0 : 1;
}
