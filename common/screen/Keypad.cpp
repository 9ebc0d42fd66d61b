#include "common/screen/Keypad.h"

#include "common/screen/KeypadKey.h"
#include "common/screen/TextBox.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include <algorithm>
#include <array>
#include <utility>

namespace numbrela {

// What a key does, looks like and is called.
struct KeyDesign {
    char Place; // by which a shape says where it stands
    Qt::Key Code;
    QString Text; // that it writes
    KeySign Sign;
    QString SpokenName;
};

namespace {

KeyDesign digit(char digit)
{
    const QString text = QChar::fromLatin1(digit);
    return { digit, static_cast<Qt::Key>(digit), text, KeySign::None, text };
}

const std::array<KeyDesign, 17> keyDesigns { {
    digit('7'),
    digit('8'),
    digit('9'),
    digit('4'),
    digit('5'),
    digit('6'),
    digit('1'),
    digit('2'),
    digit('3'),
    { ',', Qt::Key_Comma, QStringLiteral(","), KeySign::None, QStringLiteral("Coma") },
    digit('0'),
    { '<', Qt::Key_Backspace, QStringLiteral("\b"), KeySign::Erase, QStringLiteral("Borrar cifra") },
    { '_', Qt::Key_Space, QStringLiteral(" "), KeySign::Blank, QStringLiteral("Espacio") },
    { '^', Qt::Key_Up, {}, KeySign::Up, QStringLiteral("Flecha arriba") },
    { '(', Qt::Key_Left, {}, KeySign::Left, QStringLiteral("Flecha izquierda") },
    { 'v', Qt::Key_Down, {}, KeySign::Down, QStringLiteral("Flecha abajo") },
    { ')', Qt::Key_Right, {}, KeySign::Right, QStringLiteral("Flecha derecha") },
} };
const KeyDesign forwardDelete { 0, Qt::Key_Delete, QStringLiteral("\x7f"), KeySign::None, {} };

const std::vector<KeypadShape>& shapesWith(KeypadKeys keys)
{
    static const std::vector<KeypadShape> numbers {
        { "789", "456", "123", ",0<" },
        { "789<", "456,", "1230" },
        { "12345<", "67890," },
    };
    static const std::vector<KeypadShape> withBlank {
        { "789", "456", "123", ",0<", "___" },
        { "789<", "456,", "1230", "____" },
        { "12345", "67890", ",___<" },
        { "12345<_", "67890,_" },
    };
    static const std::vector<KeypadShape> withBlankAndArrows {
        { "789", "456", "123", ",0<", "___", " ^ ", "(v)" },
        { "789<", "456,", "1230", " ^ _", "(v)_" },
        { "789 ^ ", "456(v)", "123___", ",0<___" },
        { "12345<_ ^ ", "67890,_(v)" },
    };
    switch (keys) {
    case KeypadKeys::WithBlank:
        return withBlank;
    case KeypadKeys::WithBlankAndArrows:
        return withBlankAndArrows;
    default:
        return numbers;
    }
}

// The columns and rows that a key takes; none if the shape is without it.
QRect cellsOf(char key, const KeypadShape& shape)
{
    QRect cells;
    for (std::size_t row = 0; row < shape.size(); ++row) {
        for (std::size_t column = 0; column < shape[row].size(); ++column) {
            if (shape[row][column] == key) {
                cells |= QRect(static_cast<int>(column), static_cast<int>(row), 1, 1);
            }
        }
    }
    return cells;
}

// In pixels, for keys of a size.
int gapBetween(int key)
{
    return std::max(4, key / 12);
}

// Where a hand takes the keypad to drag it: two lines at its upper edge.
class Grip : public QWidget {
public:
    Grip(std::function<void(QPoint place)> drag, std::function<void()> drop, QWidget* keypad)
        : QWidget(keypad)
        , drag_(std::move(drag))
        , drop_(std::move(drop))
    {
        setCursor(Qt::SizeAllCursor);
    }

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        constexpr QColor lines(0x43, 0x56, 0x69); // with a contrast of more than 4 to the ground
        painter.setPen(QPen(lines, 2, Qt::SolidLine, Qt::RoundCap));
        const int half = width() / 8;
        for (const int y : { height() / 2 - 3, height() / 2 + 3 }) {
            painter.drawLine(width() / 2 - half, y, width() / 2 + half, y);
        }
    }

    void mousePressEvent(QMouseEvent* event) override
    {
        held_ = event->pos();
        dragging_ = false;
    }

    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!event->buttons().testFlag(Qt::LeftButton)) {
            return;
        }
        const QPoint way = event->pos() - held_;
        dragging_ = dragging_ || way.manhattanLength() >= QApplication::startDragDistance();
        if (dragging_) {
            drag_(parentWidget()->mapToParent(way));
        }
    }

    void mouseReleaseEvent(QMouseEvent* /*event*/) override { drop_(); }

private:
    std::function<void(QPoint place)> drag_;
    std::function<void()> drop_;
    QPoint held_; // where the hand holds the keypad
    bool dragging_ = false;
};

} // namespace

Keypad::Keypad(KeypadKeys keys, QWidget* parent)
    : QFrame(parent)
    , shapes_(shapesWith(keys))
{
    setObjectName(QStringLiteral("Teclado"));
    setAccessibleName(KeypadName);
    setAttribute(Qt::WA_NoMousePropagation); // what misses the keys must not reach the window below
    for (const KeyDesign& design : keyDesigns) {
        if (!cellsOf(design.Place, shapes_.front()).isEmpty()) {
            add(design);
        }
    }
}

bool Keypad::IsHeld() const
{
    return std::any_of(keys_.begin(), keys_.end(), [](const Made& each) { return each.Key->IsHeld(); });
}

int Keypad::KeySizeIn(int windowHeight)
{
    constexpr int leastPixels = 48;
    constexpr int keysInAHeight = 15;
    return std::max(leastPixels, (windowHeight + keysInAHeight - 1) / keysInAHeight);
}

std::vector<QSize> Keypad::SizesWith(int keySize) const
{
    const int gap = gapBetween(keySize);
    const int pitch = keySize + gap;
    std::vector<QSize> sizes;
    for (const KeypadShape& shape : shapes_) {
        const int columns = static_cast<int>(shape.front().size());
        const int rows = static_cast<int>(shape.size());
        sizes.emplace_back(gap + columns * pitch, topOf(shape, keySize) + rows * pitch);
    }
    return sizes;
}

void Keypad::TakeShape(std::size_t shape, int keySize)
{
    constexpr double writing = 0.5; // of the height of a key
    const int gap = gapBetween(keySize);
    const int pitch = keySize + gap;
    const int half = gap / 2;
    const int top = topOf(shapes_[shape], keySize);
    const QMargins aroundKey(half, half, gap - half, gap - half);
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(static_cast<int>(keySize * writing));
    for (const Made& each : keys_) {
        const QRect at = cellsOf(each.Design.Place, shapes_[shape]);
        each.Key->setFont(font);
        each.Key->setContentsMargins(aroundKey);
        each.Key->setGeometry(
            gap - half + at.x() * pitch, top - half + at.y() * pitch, at.width() * pitch, at.height() * pitch);
    }
    setFixedSize(SizesWith(keySize)[shape]);
    if (grip_ != nullptr) {
        grip_->setGeometry(0, 0, width(), top);
        grip_->lower(); // its last pixels belong to the keys
    }
}

// Where the keys begin, below the grip if there is one. That of a flat shape, which is for low places, is low.
int Keypad::topOf(const KeypadShape& shape, int keySize) const
{
    if (grip_ == nullptr) {
        return gapBetween(keySize);
    }
    return shape.size() > 2 ? keySize * 2 / 5 : keySize / 4;
}

void Keypad::LetDrag(std::function<void(QPoint place)> drag, std::function<void()> drop)
{
    grip_ = new Grip(std::move(drag), std::move(drop), this);
}

void Keypad::add(const KeyDesign& design)
{
    const bool writesItsName = design.Sign == KeySign::None;
    auto* key = new KeypadKey(writesItsName ? design.Text : QString(), design.Sign, design.SpokenName, this);
    key->setObjectName(QStringLiteral("Tecla(%1)").arg(design.SpokenName));
    if (design.Sign == KeySign::Erase) {
        key->OnDown = [this, &design](bool repeated) {
            if (repeated) {
                send(QEvent::KeyPress, *erasingBy_, true);
            } else {
                erase(design);
            }
        };
        key->OnUp = [this] { comeUp(*erasingBy_); };
    } else {
        key->OnDown = [this, &design](bool repeated) { send(QEvent::KeyPress, design, repeated); };
        key->OnUp = [this, &design] { comeUp(design); };
    }
    keys_.push_back({ key, design });
}

void Keypad::comeUp(const KeyDesign& design) const
{
    send(QEvent::KeyRelease, design);
    if (OnAllUp && !IsHeld()) {
        OnAllUp();
    }
}

// Where a result is written from its last digit to its first, the caret is before the digit that was written last.
// Backspace finds nothing to erase there, so Delete does it.
void Keypad::erase(const KeyDesign& backspace)
{
    const auto* box = qobject_cast<const TextBox*>(window()->focusWidget());
    const QString before = box != nullptr ? box->text() : QString();
    erasingBy_ = &backspace;
    send(QEvent::KeyPress, backspace);
    if (box != nullptr && box == window()->focusWidget() && box->IsWrittenFromTheRight() && box->text() == before
        && box->CaretPosition() == 0) {
        send(QEvent::KeyRelease, backspace);
        erasingBy_ = &forwardDelete;
        send(QEvent::KeyPress, forwardDelete);
    }
}

// Where a platform's own keys arrive, so that everything that looks at keys on their way sees these, too. A disabled
// keypad only lets go of the keys that are held: its window is blocked, and passes nothing on to the control.
void Keypad::send(QEvent::Type type, const KeyDesign& design, bool repeated) const
{
    if (QWindow* window = this->window()->windowHandle()) {
        QKeyEvent event(type, design.Code, Qt::NoModifier, design.Text, repeated);
        QCoreApplication::sendEvent(window, &event);
        if (QWidget* control = this->window()->focusWidget(); control != nullptr && !isEnabled()) {
            QCoreApplication::sendEvent(control, &event);
        }
    }
}

// ---------------------------------------------------------------------------------------------------------- the ground

void Keypad::paintEvent(QPaintEvent* /*event*/)
{
    constexpr double radius = 8; // pixels
    constexpr QColor ground(0xb9, 0xc9, 0xda);
    constexpr QColor edge(0x6d, 0x84, 0x9c);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(edge);
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

} // namespace numbrela
