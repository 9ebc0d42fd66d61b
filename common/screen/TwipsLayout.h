#pragma once

#include <QFont>
#include <QLayout>

#include <memory>
#include <vector>

namespace numbrela {

// A rectangle or a size in twips: 1/1440 inch, 15 to a pixel on a screen of 96 dots per inch.
struct TwipsRect {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;

    bool operator==(const TwipsRect&) const = default;
};

struct TwipsSize {
    int Width = 0;
    int Height = 0;
};

// A font as a form asks for it: its size in points (20 twips each) at the design size of the form.
struct FontSpec {
    const char* Family = "Arial";
    double Points = 12;
    bool Bold = false;
};

// Holds each control of an area at its rectangle in twips, and scales rectangles and fonts together with the area,
// proportions kept. A visible control that stands beyond an edge of the area's design size widens what is shown, so
// that nothing is ever cut off. A control may be an area itself (a frame): it takes the scale of the area around it,
// and grows with what stands beyond its own edges.
class TwipsLayout : public QLayout {
public:
    TwipsLayout(QWidget* area, TwipsSize designSize, FontSpec defaultFont);
    ~TwipsLayout() override;

    // Makes the area larger or smaller; what is in it stays in its place.
    void SetDesignSize(TwipsSize size);

    // Puts a control into the area, or changes the place and font of one that is there.
    void Place(QWidget* control, TwipsRect rect, FontSpec font);
    void Place(QWidget* control, TwipsRect rect) { Place(control, rect, defaultFont_); }

    // Moves a control that is in the area.
    void Move(QWidget* control, TwipsRect rect);

    // The place of a control of the area, and its font.
    TwipsRect RectOf(const QWidget* control) const;
    FontSpec FontOf(const QWidget* control) const;

    // Keeps this margin, in twips, between every control and the edges of what is shown. The default is none.
    void SetMargin(int margin);

    // Moves what is shown out of the middle of the area to the left, until so many pixels are free at its right or it
    // is at the left edge; 0 moves it back.
    void KeepRoomBeside(int pixels);

    // Where in the area it is shown, in pixels.
    QRect Drawing() const { return drawing_; }

    // What is shown: the design size, and every visible control whole.
    TwipsRect Extent() const;

    // The present scale, and the one at which the area has its design size on this screen.
    double PixelsPerTwip() const { return pixelsPerTwip_; }
    double DesignPixelsPerTwip() const;

    // The size in pixels of a font of so many points, at the present scale.
    int FontPixels(double points) const;

    // The size in pixels of what is shown, at a scale.
    QSize SizeAt(double pixelsPerTwip) const;

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    QSize sizeHint() const override;
    QSize minimumSize() const override;
    Qt::Orientations expandingDirections() const override;
    void setGeometry(const QRect& rect) override;

private:
    struct Entry {
        std::unique_ptr<QLayoutItem> Item;
        TwipsRect Rect;
        FontSpec Font;
        QFont GivenFont = {};
    };

    double scaleIn(QSize room) const;
    QPointF origin() const;
    void giveFont(Entry& entry) const;
    TwipsRect wholeRect(const Entry& entry) const;
    const TwipsLayout* enclosingArea() const;
    Entry* find(const QWidget* control);
    const Entry* find(const QWidget* control) const;

    TwipsSize designSize_;
    FontSpec defaultFont_;
    int margin_ = 0;
    int roomBeside_ = 0; // pixels
    QRect drawing_;
    QPointF origin_; // where the twips of the area begin in it, in pixels
    double pixelsPerTwip_;
    std::vector<Entry> entries_;
};

} // namespace numbrela
