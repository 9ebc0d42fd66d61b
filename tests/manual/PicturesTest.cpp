#include "tests/gallery/Gallery.h"
#include "tests/gallery/Writing.h"
#include "tests/manual/Pages.h"
#include "tests/support/Boxes.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QPixmap>

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace numbrela::testing {

namespace {

// Where letters are drawn in another way, pixels only tell where things are and what colour they have. What they say is
// compared as text.
std::string writingBeside(const std::string& picture)
{
    std::ostringstream writing;
    writing << std::ifstream(ManualFolder() / "pictures" / (picture + ".txt")).rdbuf();
    return writing.str();
}

// How far the colours of two pictures are apart at most, 0 to 255, when their letters are blurred: those differ between
// the versions of the library that draws them, and so does the width of a box that only holds letters.
int distance(const QImage& first, const QImage& second)
{
    constexpr int patch = 16; // pixels
    const QSize size(std::max(1, first.width() / patch), std::max(1, first.height() / patch));
    const auto blurred = [&](const QImage& picture) {
        return picture.convertToFormat(QImage::Format_RGB32)
            .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage one = blurred(first);
    const QImage other = blurred(second);
    int greatest = 0;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            for (const int difference : { qRed(a) - qRed(b), qGreen(a) - qGreen(b), qBlue(a) - qBlue(b) }) {
                greatest = std::max(greatest, std::abs(difference));
            }
        }
    }
    return greatest;
}

std::map<std::string, QImage> picturesOfTheManual()
{
    std::map<std::string, QImage> pictures;
    for (const auto& entry : std::filesystem::directory_iterator(ManualFolder() / "pictures")) {
        const bool isOfBrowser = entry.path().filename().string().starts_with("web-"); // drawn by no gallery
        if (entry.path().extension() == ".png" && !isOfBrowser) {
            pictures[entry.path().stem().string()] = QImage(QString::fromStdString(entry.path().string()));
        }
    }
    return pictures;
}

// Compares the pictures of the manual with the windows as they are now.
class Comparison : public Gallery {
public:
    explicit Comparison(std::map<std::string, QImage> pictures)
        : Unseen(std::move(pictures))
    {
    }

    void DrawPart(QWidget& window, const QRect& part, const QString& name) override
    {
        constexpr int lettersDiffer = 40;
        QCoreApplication::processEvents(); // let the layout settle
        const auto picture = Unseen.find(name.toStdString());
        if (picture == Unseen.end()) {
            return;
        }
        const QImage now = window.grab(part).toImage();
        EXPECT_EQ(picture->second.width() / 8, now.width() / 8) << name.toStdString();
        EXPECT_EQ(picture->second.height() / 8, now.height() / 8) << name.toStdString();
        EXPECT_LE(distance(picture->second, now), lettersDiffer)
            << name.toStdString() << " is of another version; tools/manual draws it anew";
        EXPECT_EQ(writingBeside(picture->first), WritingIn(window))
            << name.toStdString() << " says something else; tools/manual draws it anew";
        Unseen.erase(picture);
    }

    std::map<std::string, QImage> Unseen;
};

TEST(ManualPicturesTest, EachPictureShowsAStateOfTheGalleryAsItIsNow)
{
    Comparison comparison(picturesOfTheManual());
    EXPECT_GE(comparison.Unseen.size(), 15U);
    for (const GalleryRoom& room : galleryRooms) {
        room.Draw(comparison);
    }
    for (const auto& [name, picture] : comparison.Unseen) {
        ADD_FAILURE() << "the gallery has no " << name;
    }
}

} // namespace

} // namespace numbrela::testing
