#include "common/screen/TwipsLayout.h"

#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace numbrela {

namespace {

constexpr double twipsPerInch = 1440;
constexpr double twipsPerPoint = 20;
constexpr double smallestScale = 0.5; // below half its design size a window is no longer readable

// A place is the same pixel wherever it is counted from: halves go up, also below zero, and with them what falls short
// of a half by nothing but the inexactness of a double.
int rounded(double pixels)
{
    constexpr double almostHalf = 0.5 + 1e-9;
    return static_cast<int>(std::floor(pixels + almostHalf));
}

QFont fontInPixels(const FontSpec& spec, int pixels)
{
    QFont font(QString::fromLatin1(spec.Family));
    font.setPixelSize(pixels);
    font.setBold(spec.Bold);
    if (font.family().startsWith(QStringLiteral("Courier"))) {
        font.setStyleHint(QFont::Monospace); // columns stay columns even where no such font is installed
    }
    return font;
}

} // namespace

TwipsLayout::TwipsLayout(QWidget* area, TwipsSize designSize, FontSpec defaultFont)
    : QLayout(area)
    , designSize_(designSize)
    , defaultFont_(defaultFont)
    , pixelsPerTwip_(DesignPixelsPerTwip())
{
    setContentsMargins(0, 0, 0, 0);
}

TwipsLayout::~TwipsLayout() = default;

void TwipsLayout::SetDesignSize(TwipsSize size)
{
    designSize_ = size;
    invalidate();
}

void TwipsLayout::Place(QWidget* control, TwipsRect rect, FontSpec font)
{
    if (find(control) == nullptr) {
        addChildWidget(control);
        addItem(new QWidgetItem(control));
    }
    Entry& entry = *find(control);
    entry.Rect = rect;
    entry.Font = font;
    giveFont(entry);
    invalidate();
}

void TwipsLayout::Move(QWidget* control, TwipsRect rect)
{
    find(control)->Rect = rect;
    invalidate();
}

TwipsRect TwipsLayout::RectOf(const QWidget* control) const
{
    const Entry* entry = find(control);
    return entry == nullptr ? TwipsRect() : entry->Rect;
}

FontSpec TwipsLayout::FontOf(const QWidget* control) const
{
    const Entry* entry = find(control);
    return entry == nullptr ? defaultFont_ : entry->Font;
}

void TwipsLayout::SetMargin(int margin)
{
    margin_ = margin;
    invalidate();
}

void TwipsLayout::KeepRoomBeside(int pixels)
{
    if (pixels != roomBeside_) {
        roomBeside_ = pixels;
        invalidate();
        activate();
    }
}

TwipsRect TwipsLayout::Extent() const
{
    int left = 0;
    int top = 0;
    int right = designSize_.Width;
    int bottom = designSize_.Height;
    for (const Entry& entry : entries_) {
        if (!entry.Item->widget()->isHidden()) {
            const TwipsRect rect = wholeRect(entry);
            left = std::min(left, rect.Left - margin_);
            top = std::min(top, rect.Top - margin_);
            right = std::max(right, rect.Left + rect.Width + margin_);
            bottom = std::max(bottom, rect.Top + rect.Height + margin_);
        }
    }
    return { left, top, right - left, bottom - top };
}

double TwipsLayout::DesignPixelsPerTwip() const
{
    return parentWidget()->logicalDpiX() / twipsPerInch;
}

int TwipsLayout::FontPixels(double points) const
{
    return std::max(1, rounded(points * twipsPerPoint * pixelsPerTwip_));
}

QSize TwipsLayout::SizeAt(double pixelsPerTwip) const
{
    const TwipsRect extent = Extent();
    return { rounded(extent.Width * pixelsPerTwip), rounded(extent.Height * pixelsPerTwip) };
}

void TwipsLayout::addItem(QLayoutItem* item)
{
    entries_.push_back({ std::unique_ptr<QLayoutItem>(item), {}, defaultFont_ });
}

int TwipsLayout::count() const
{
    return static_cast<int>(entries_.size());
}

QLayoutItem* TwipsLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? entries_[static_cast<std::size_t>(index)].Item.get() : nullptr;
}

QLayoutItem* TwipsLayout::takeAt(int index)
{
    if (itemAt(index) == nullptr) {
        return nullptr;
    }
    const auto position = entries_.begin() + index;
    QLayoutItem* item = position->Item.release();
    entries_.erase(position);
    return item;
}

QSize TwipsLayout::sizeHint() const
{
    return SizeAt(DesignPixelsPerTwip());
}

// However much is shown, a window fits on its screen.
QSize TwipsLayout::minimumSize() const
{
    return SizeAt(DesignPixelsPerTwip() * smallestScale).boundedTo(parentWidget()->screen()->availableSize() / 2);
}

Qt::Orientations TwipsLayout::expandingDirections() const
{
    return Qt::Horizontal | Qt::Vertical;
}

void TwipsLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    pixelsPerTwip_ = scaleIn(rect.size());
    const QSize shown = SizeAt(pixelsPerTwip_);
    const QSize spare = rect.size() - shown;
    const int left
        = roomBeside_ > 0 ? std::clamp(spare.width() - roomBeside_, 0, spare.width() / 2) : spare.width() / 2;
    drawing_ = QRect(rect.topLeft() + QPoint(left, spare.height() / 2), shown);
    origin_ = origin();
    const auto toPixels = [this](double start, int twips) { return rounded(start + twips * pixelsPerTwip_); };

    for (Entry& entry : entries_) {
        QWidget* control = entry.Item->widget();
        giveFont(entry);
        const TwipsRect whole = wholeRect(entry);
        const QPoint topLeft(toPixels(origin_.x(), whole.Left), toPixels(origin_.y(), whole.Top));
        const QPoint bottomRight(
            toPixels(origin_.x(), whole.Left + whole.Width), toPixels(origin_.y(), whole.Top + whole.Height));
        control->setGeometry(QRect(topLeft, bottomRight - QPoint(1, 1)));
        if (auto* frame = dynamic_cast<TwipsLayout*>(control->layout()); frame != nullptr) {
            frame->setGeometry(control->contentsRect()); // if it has only moved, too: it begins elsewhere in its pixel
        }
    }
}

// A frame begins between two pixels, and was rounded to one of them. What it holds is rounded only once, in the area
// around it: what reaches an edge of the frame ends with it, and is neither cut off nor a pixel short. At the design
// size everything is to the pixel where its twips say, counted from the frame.
QPointF TwipsLayout::origin() const
{
    const TwipsLayout* enclosing = pixelsPerTwip_ == DesignPixelsPerTwip() ? nullptr : enclosingArea();
    if (const Entry* frame = enclosing == nullptr ? nullptr : enclosing->find(parentWidget()); frame != nullptr) {
        return enclosing->origin_ + QPointF(frame->Rect.Left, frame->Rect.Top) * pixelsPerTwip_ - parentWidget()->pos();
    }
    const TwipsRect extent = Extent();
    return drawing_.topLeft() - QPointF(extent.Left, extent.Top) * pixelsPerTwip_;
}

// The scale at which what is shown fills this room. At the design size it is exactly the design scale, although the
// room is in whole pixels: every control is to the pixel where its twips say.
double TwipsLayout::scaleIn(QSize room) const
{
    if (const TwipsLayout* enclosing = enclosingArea(); enclosing != nullptr) {
        return enclosing->pixelsPerTwip_;
    }
    if (room == sizeHint()) {
        return DesignPixelsPerTwip();
    }
    const TwipsRect extent = Extent();
    return std::min(
        static_cast<double>(room.width()) / extent.Width, static_cast<double>(room.height()) / extent.Height);
}

// A control may write smaller than its font says, to show its text whole. It is given the same font only once: every
// change of font triggers a new layout, which would otherwise set the font again, and so on for ever.
void TwipsLayout::giveFont(Entry& entry) const
{
    const QFont font = fontInPixels(entry.Font, FontPixels(entry.Font.Points));
    if (font != entry.GivenFont) {
        entry.GivenFont = font;
        entry.Item->widget()->setFont(font);
    }
}

// Where a control stands; a frame with all that it holds.
TwipsRect TwipsLayout::wholeRect(const Entry& entry) const
{
    const auto* inner = dynamic_cast<const TwipsLayout*>(entry.Item->widget()->layout());
    if (inner == nullptr) {
        return entry.Rect;
    }
    const TwipsRect extent = inner->Extent();
    return { entry.Rect.Left + extent.Left, entry.Rect.Top + extent.Top, extent.Width, extent.Height };
}

const TwipsLayout* TwipsLayout::enclosingArea() const
{
    const QWidget* outer = parentWidget()->isWindow() ? nullptr : parentWidget()->parentWidget();
    return outer == nullptr ? nullptr : dynamic_cast<const TwipsLayout*>(outer->layout());
}

TwipsLayout::Entry* TwipsLayout::find(const QWidget* control)
{
    const auto found = std::find_if(
        entries_.begin(), entries_.end(), [control](const Entry& entry) { return entry.Item->widget() == control; });
    return found == entries_.end() ? nullptr : &*found;
}

const TwipsLayout::Entry* TwipsLayout::find(const QWidget* control) const
{
    return const_cast<TwipsLayout*>(this)->find(control);
}

} // namespace numbrela
