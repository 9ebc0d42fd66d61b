#pragma once

#include <QDir>
#include <QWidget>

namespace numbrela::testing {

// The pictures of every window in its telling states, as PNG files in one folder.
class Gallery {
public:
    explicit Gallery(const QString& folder);

    // Draws the window as it stands to "<name>.png".
    void Draw(QWidget& window, const QString& name);

    // Draws it as it fills a projector of 1280 by 800 pixels.
    void DrawMaximised(QWidget& window, const QString& name);

    // How many pictures could not be written.
    int Failures() const { return failures_; }

private:
    QDir folder_;
    int failures_ = 0;
};

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

} // namespace numbrela::testing
