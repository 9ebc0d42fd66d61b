#include "common/screen/FormWindow.h"

#include "common/screen/OptionMenu.h"
#include "common/screen/Screens.h"
#include "common/screen/WindowKeypad.h"

#include <QEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <utility>

namespace numbrela {

namespace {

constexpr int menuFontTwips = 12 * 20;
constexpr int roomForWindowFrame = 48; // pixels that a window manager may put around a window

double scaleToFit(QSize room, const TwipsRect& extent)
{
    return std::min(
        static_cast<double>(room.width()) / extent.Width, static_cast<double>(room.height()) / extent.Height);
}

} // namespace

FormWindow::FormWindow(const QString& name, const QString& caption, TwipsSize area, FontSpec font)
    : menuBar_(new QMenuBar(this))
    , area_(new TwipsLayout(this, area, font))
    , shownExtent_(area_->Extent())
{
    setObjectName(name);
    setWindowTitle(caption);
    menuBar_->setNativeMenuBar(false);
    menuBar_->hide();
    area_->setMenuBar(menuBar_);
    FillScreenByF11(*this);
}

void FormWindow::OpenLike(const FormWindow& opener)
{
    choices_ = opener.choices_;
    const bool isLarge = opener.isMaximized() || (keepsFrame_ && choices_->FullScreen);
    setWindowState(isLarge ? Qt::WindowMaximized : Qt::WindowNoState);
    followChoices();
}

void FormWindow::Show(bool modally)
{
    setWindowModality(modally ? Qt::ApplicationModal : Qt::NonModal);
    setAttribute(Qt::WA_DeleteOnClose);
    show();
}

void FormWindow::SetTabSequence(const std::vector<QWidget*>& controls)
{
    for (std::size_t i = 1; i < controls.size(); ++i) {
        setTabOrder(controls[i - 1], controls[i]);
    }
}

void FormWindow::OfferKeypad(KeypadKeys keys)
{
    keypad_ = new WindowKeypad(*this, *menuBar_, keys);
    menuBar_->show();
}

void FormWindow::LendKeypad(QInputDialog& box) const
{
    if (keypad_ != nullptr) {
        keypad_->ServeBox(box);
    }
}

void FormWindow::followChoices()
{
    if (!keepsFrame_) {
        setWindowState(windowState().setFlag(Qt::WindowFullScreen, choices_->FullScreen));
    }
}

// However the window came to fill the screen or no longer to do so: a window manager has ways of its own. While it is
// minimised, Qt remembers what it is otherwise.
void FormWindow::takeChoice()
{
    if (!keepsFrame_) {
        choices_->FullScreen = isFullScreen();
    }
}

QMenu* FormWindow::AddMenu(const QString& name, const QString& caption)
{
    QMenu* menu = menuBar_->addMenu(caption);
    menu->setObjectName(name);
    menuBar_->show();
    return menu;
}

QAction* FormWindow::AddMenuItem(QMenu* menu, const QString& name, const QString& caption, std::function<void()> choose,
    const QKeySequence& shortcut)
{
    QAction* item = menu->addAction(caption);
    item->setObjectName(name);
    item->setShortcut(shortcut);
    connect(item, &QAction::triggered, this, std::move(choose));
    return item;
}

OptionMenu* FormWindow::AddOptionMenu(QMenu* menu, const QString& name, const QString& caption,
    const std::vector<QString>& itemCaptions, const std::function<void(int)>& choose)
{
    auto* list = new OptionMenu(name, caption, itemCaptions, choose, menu);
    menu->addMenu(list);
    return list;
}

bool FormWindow::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest) {
        showWholeExtent();
    }
    const QEvent::Type type = event->type();
    const bool handled = QWidget::event(event);
    if (type == QEvent::DeferredDelete) {
        return handled; // the window is no more
    }
    if (type == QEvent::WindowActivate) {
        followChoices();
    }
    if (keypad_ != nullptr) {
        keypad_->FollowWindow(type);
    }
    return handled;
}

// The size is taken before the window is shown for the first time: taken later, everything would be laid out twice.
void FormWindow::setVisible(bool visible)
{
    if (visible && !hasOwnSize_ && !isMaximized() && !isFullScreen()) {
        ensurePolished();
        menuBar_->ensurePolished();
        takeDesignSize();
    }
    if (visible) {
        takeChoice();
    }
    QWidget::setVisible(visible);
}

// A window that opened maximised has never had a size of its own; it needs one when it is restored.
void FormWindow::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || !isVisible()) {
        return;
    }
    takeChoice();
    if (!hasOwnSize_ && !isMaximized() && !isFullScreen() && !isMinimized()) {
        takeDesignSize();
        BringOntoScreen(*this);
    }
}

void FormWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    // The menu bar's height depends on its font, and its font on the room that the bar leaves. Starting as if it took
    // none gives the same result for a size, whatever the size was before.
    scaleMenus(scaleToFit(size(), area_->Extent()));
    area_->activate();
    scaleMenus(area_->PixelsPerTwip());
    area_->activate();
    if (area_->Extent() == shownExtent_) {
        wantedScale_ = size() == takenSize_ ? takenScale_ : area_->PixelsPerTwip();
    }
}

// The design size, or as much of it as the screen has room for.
void FormWindow::takeDesignSize()
{
    hasOwnSize_ = true;
    shownExtent_ = area_->Extent();
    takeScale(area_->DesignPixelsPerTwip());
}

// The height of the menu bar depends on the scale, and the largest scale that fits the screen on that height.
void FormWindow::takeScale(double pixelsPerTwip)
{
    scaleMenus(pixelsPerTwip);
    const double fittingScale = std::min(pixelsPerTwip, largestScaleOnScreen());
    scaleMenus(fittingScale);
    wantedScale_ = pixelsPerTwip;
    takenScale_ = pixelsPerTwip;
    takenSize_ = windowSizeAt(fittingScale);
    resize(takenSize_);
}

double FormWindow::largestScaleOnScreen() const
{
    const int menuHeight = windowSizeAt(0).height();
    const QSize room = screen()->availableSize() - QSize(roomForWindowFrame, roomForWindowFrame + menuHeight);
    return scaleToFit(room, area_->Extent());
}

QSize FormWindow::windowSizeAt(double pixelsPerTwip) const
{
    const int menuHeight = area_->totalSizeHint().height() - area_->sizeHint().height();
    return area_->SizeAt(pixelsPerTwip) + QSize(0, menuHeight);
}

// When a control is moved beyond an edge, or back, the window grows or shrinks around it and keeps its scale, as far as
// the screen has room. A maximised window cannot: its layout has already taken a smaller scale.
void FormWindow::showWholeExtent()
{
    if (const TwipsRect extent = area_->Extent(); extent != shownExtent_) {
        shownExtent_ = extent;
        if (!isMaximized() && !isFullScreen()) {
            takeScale(wantedScale_);
            BringOntoScreen(*this);
        }
    }
}

// The menus, and the boxes that take their font from their window, grow with everything else.
void FormWindow::scaleMenus(double pixelsPerTwip)
{
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(menuFontTwips * pixelsPerTwip))));
    setFont(font);
    for (QMenu* menu : findChildren<QMenu*>()) {
        menu->setFont(font);
    }
}

} // namespace numbrela
