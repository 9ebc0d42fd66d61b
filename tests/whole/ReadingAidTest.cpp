#include "common/screen/FormWindow.h"
#include "common/screen/KeypadSwitch.h"
#include "common/screen/TextBox.h"
#include "common/screen/WindowKeypad.h"
#include "tests/gallery/Gallery.h"
#include "tests/program/Program.h"
#include "tests/support/Driver.h"
#include "tests/support/Shown.h"
#include "tests/whole/Contrast.h"
#include "tests/whole/Fit.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QTest>
#include <QTextEdit>

#include <algorithm>
#include <functional>
#include <map>
#include <set>
#include <string_view>

namespace numbrela {

namespace {

using namespace testing;

std::string nameOf(const QWidget& control)
{
    return control.objectName().isEmpty() ? control.metaObject()->className() : control.objectName().toStdString();
}

// A window or a control of one, "Form2.Text3".
std::string fullNameOf(const QWidget& control)
{
    return nameOf(*control.window()) + '.' + nameOf(control);
}

std::vector<QWidget*> visibleControls(const QWidget& window)
{
    std::vector<QWidget*> controls;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (control->isVisible() && control->window() == &window) {
            controls.push_back(control);
        }
    }
    return controls;
}

std::vector<QWidget*> focusableControls(const QWidget& window)
{
    std::vector<QWidget*> controls = visibleControls(window);
    std::erase_if(controls,
        [](const QWidget* control) { return control->focusPolicy() == Qt::NoFocus || !control->isEnabled(); });
    return controls;
}

// Looks at every state of a room instead of drawing it.
class Inspection : public Gallery {
public:
    explicit Inspection(std::function<void(QWidget& window)> inspect)
        : inspect_(std::move(inspect))
    {
    }

    void DrawPart(QWidget& window, const QRect& /*part*/, const QString& name) override
    {
        SCOPED_TRACE(name.toStdString());
        QCoreApplication::processEvents(); // let the layout settle
        inspect_(window);
    }

private:
    std::function<void(QWidget& window)> inspect_;
};

class ReadingAidTest : public ::testing::TestWithParam<GalleryRoom> {
protected:
    static void inspectAll(std::function<void(QWidget& window)> inspect)
    {
        Inspection inspection(std::move(inspect));
        GetParam().Draw(inspection);
    }

    static bool hasKeypad()
    {
        const std::set<std::string> withoutBoxes { "Menu", "Compare" };
        return withoutBoxes.count(GetParam().Name) == 0;
    }
};

INSTANTIATE_TEST_SUITE_P(Rooms, ReadingAidTest, ::testing::ValuesIn(galleryRooms),
    [](const auto& instance) { return std::string(instance.param.Name); });

// --- The Tab key -----------------------------------------------------------------------------------------------------

bool waitsBehindBox(const QWidget& window)
{
    return QApplication::activeModalWidget() != nullptr && QApplication::activeModalWidget() != &window;
}

// All controls that get the focus in turn while Tab is pressed, until one of them gets it again. Afterwards the focus
// is where it was.
std::set<QWidget*> reachedByTab()
{
    QWidget* const before = QApplication::focusWidget();
    std::set<QWidget*> reached;
    for (Press(Qt::Key_Tab); reached.insert(QApplication::focusWidget()).second;) {
        Press(Qt::Key_Tab);
    }
    before->setFocus();
    return reached;
}

// The operands of a sum are not tab stops, by design. A screen reader speaks them together with the answer.
bool isSpokenWithAnother(const QWidget& control, const std::set<QWidget*>& reached)
{
    const auto* box = qobject_cast<const QLineEdit*>(&control);
    const QString text = box == nullptr ? QString() : box->text().trimmed();
    return !text.isEmpty() && std::any_of(reached.begin(), reached.end(), [&text](QWidget* other) {
        return QAccessible::queryAccessibleInterface(other)->text(QAccessible::Description).contains(text);
    });
}

// The text of a message box is read out when the box opens; a click, but no key, leads to it.
bool isTextOfBox(const QWidget& control)
{
    return control.window()->inherits("QMessageBox") && control.inherits("QLabel");
}

TEST_P(ReadingAidTest, TheTabKeyReachesWhatTakesTheFocus)
{
    inspectAll([](QWidget& window) {
        if (waitsBehindBox(window)) {
            return;
        }
        ShowAndActivate(window);
        const std::set<QWidget*> reached = reachedByTab();
        for (QWidget* control : focusableControls(window)) {
            EXPECT_TRUE(reached.count(control) == 1 || isSpokenWithAnother(*control, reached) || isTextOfBox(*control))
                << fullNameOf(*control);
        }
    });
}

// --- The whole screen ------------------------------------------------------------------------------------------------

TEST_P(ReadingAidTest, F11FillsTheScreenWithEveryWindowAndBringsItBackAndDoesNothingInABox)
{
    inspectAll([](QWidget& window) {
        if (waitsBehindBox(window)) {
            return;
        }
        ShowAndActivate(window);
        const bool isBox = window.inherits("QMessageBox") || window.inherits("QInputDialog");
        const QRect before = window.geometry();
        Press(Qt::Key_F11);
        for (const QWidget* any : WindowsOnScreen()) {
            EXPECT_EQ(any->isFullScreen(), any == &window && !isBox) << nameOf(*any);
        }
        EXPECT_EQ(window.size(), isBox ? before.size() : window.screen()->size());
        Press(Qt::Key_F11);
        EXPECT_FALSE(window.isFullScreen());
        EXPECT_EQ(window.geometry(), before);
    });
}

// --- Seen at all -----------------------------------------------------------------------------------------------------

// A control that is visible in no state has not been inspected by any of these tests.
TEST_P(ReadingAidTest, WhatTakesTheFocusIsInSightInSomeState)
{
    std::set<std::string> unseen;
    std::set<std::string> seen;
    inspectAll([&](QWidget& window) {
        for (const QWidget* control : window.findChildren<QWidget*>()) {
            const bool isPart = control->objectName().startsWith(QStringLiteral("qt_")); // of a control of Qt's
            if (control->window() == &window && control->focusPolicy() != Qt::NoFocus && !isPart) {
                unseen.insert(fullNameOf(*control));
            }
        }
        for (const QWidget* control : focusableControls(window)) {
            seen.insert(fullNameOf(*control));
        }
    });
    EXPECT_FALSE(seen.empty());
    for (const std::string& control : seen) {
        unseen.erase(control);
    }
    EXPECT_EQ(unseen, std::set<std::string>());
}

// --- Heard and seen -------------------------------------------------------------------------------------------------

void expectName(QWidget& control)
{
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&control);
    ASSERT_NE(spoken, nullptr);
    EXPECT_NE(spoken->text(QAccessible::Name).trimmed().toStdString(), "");
    if (qobject_cast<QAbstractButton*>(&control) != nullptr) { // a reader says its label before its own name
        EXPECT_TRUE(spoken->relations(QAccessible::Label).isEmpty());
    }
}

// A control with room for its text may still be beyond the edge of its parent. A scrolling area is covered by its
// viewport, which is inspected instead.
void expectSeenWhole(const QWidget& control)
{
    EXPECT_EQ(CutOffText(control), "");
    const QRect seen = control.visibleRegion().boundingRect();
    EXPECT_TRUE(seen.contains(control.rect()) || control.inherits("QAbstractScrollArea"))
        << control.width() << " x " << control.height() << " shows " << seen.width() << " x " << seen.height();
}

void expectContrast(const QWidget& control)
{
    constexpr double enough = 4.5;
    for (const ColourPair& pair : ColourPairsOf(control)) {
        EXPECT_GE(Contrast(pair.Text, pair.Ground), enough)
            << pair.What << ": " << pair.Text.name().toStdString() << " on " << pair.Ground.name().toStdString();
    }
}

TEST_P(ReadingAidTest, EveryControlHasANameToBeSpokenAndIsSeenWholeAndStandsOut)
{
    inspectAll([](QWidget& window) {
        EXPECT_FALSE(window.windowTitle().isEmpty());
        for (QWidget* control : focusableControls(window)) {
            SCOPED_TRACE(fullNameOf(*control));
            expectName(*control);
        }
        for (QWidget* control : visibleControls(window)) {
            SCOPED_TRACE(fullNameOf(*control));
            if (qobject_cast<const QAbstractButton*>(control) != nullptr) { // some never take the focus
                expectName(*control);
            }
            expectSeenWhole(*control);
            expectContrast(*control);
        }
        for (const QMenu* menu : window.findChildren<QMenu*>()) { // open in no state
            SCOPED_TRACE(fullNameOf(*menu));
            expectContrast(*menu);
        }
    });
}

// --- The keypad on the screen ----------------------------------------------------------------------------------------

// As it is painted, which is not what the style paints for a button.
double bestContrast(const QImage& picture, const QRect& part, const QColor& ground)
{
    std::set<QRgb> colours;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        for (int x = part.left(); x <= part.right(); ++x) {
            colours.insert(picture.pixel(x, y));
        }
    }
    double best = 1;
    for (const QRgb colour : colours) {
        best = std::max(best, Contrast(colour, ground));
    }
    return best;
}

// The ink of the sign and the ground above it; a message disables the keys.
void expectKeyStandsOut(QPushButton& key)
{
    for (const char* look : { "down", "disabled", "up" }) {
        key.setDown(look == std::string_view("down"));
        key.setEnabled(look != std::string_view("disabled"));
        const QImage picture = key.grab().toImage();
        const QRect middle(picture.width() / 4, picture.height() / 4, picture.width() / 2, picture.height() / 2);
        const QColor ground = picture.pixelColor(picture.width() / 2, picture.height() / 8);
        EXPECT_GE(bestContrast(picture, middle, ground), 4.5) << look;
    }
}

// What a hand must find, but nobody has to read.
constexpr double enoughForSigns = 3;

// The two lines above the keys.
void expectGripStandsOut(QWidget& pad)
{
    const QImage picture = pad.grab().toImage();
    const int middle = picture.width() / 2;
    const int aboveKeys = pad.findChild<QPushButton*>()->contentsRect().height() / 5;
    EXPECT_GE(bestContrast(picture, { middle, 2, 1, aboveKeys - 2 }, picture.pixelColor(middle, 2)), enoughForSigns);
}

// The button on the bar, and the drawing of a keypad on it, two of whose keys meet in its middle. It looks lit only
// where it can be pressed.
void expectSwitchStandsOut(KeypadSwitch& button)
{
    const QSignalBlocker nobodyChooses(button);
    const bool before = button.isChecked();
    const int letters = button.fontMetrics().height(); // the drawing is as high, and twice as wide
    for (const bool isChecked : { !before, before }) {
        for (const char* look : { "under the mouse", "disabled", "at rest" }) {
            SCOPED_TRACE(std::string(isChecked ? "checked, " : "unchecked, ") + look);
            button.setChecked(isChecked);
            button.setAttribute(Qt::WA_UnderMouse, look == std::string_view("under the mouse"));
            button.setEnabled(look != std::string_view("disabled"));
            const QImage picture = button.grab().toImage();
            const QPoint middle = picture.rect().center();
            const QColor gap = picture.pixelColor(middle);
            const QColor key = picture.pixelColor(middle + QPoint(letters / 4, 0));
            const QRect edge(0, middle.y(), middle.x() - letters + 2, 1);
            EXPECT_GE(bestContrast(picture, edge, picture.pixelColor(0, middle.y())), enoughForSigns);
            EXPECT_GE(Contrast(gap, key), enoughForSigns);
            EXPECT_EQ(key.lightness() > gap.lightness(), isChecked && button.isEnabled());
        }
    }
}

bool isPartOf(const QWidget& pad, const QWidget& control)
{
    return &control == &pad || pad.isAncestorOf(&control);
}

void expectOffTheBoxAndHalfOfEachButton(const QWidget& window, const QWidget& pad)
{
    const QRect place = PlaceIn(window, &pad);
    if (const QWidget* box = window.focusWidget(); box != nullptr && TakesTyping(*box)) {
        EXPECT_FALSE(place.intersects(PlaceIn(window, box)));
    }
    for (const QWidget* control : visibleControls(window)) {
        if (qobject_cast<const QAbstractButton*>(control) != nullptr && !isPartOf(pad, *control)) {
            const QSize covered = (place & PlaceIn(window, control)).size();
            EXPECT_LE(2 * covered.width() * covered.height(), control->width() * control->height())
                << fullNameOf(*control);
        }
    }
}

void expectKeypad(const QWidget& window, const QWidget& pad)
{
    const QWidget& around = *(window.isModal() && window.parentWidget() != nullptr ? window.parentWidget() : &window);
    for (QPushButton* key : pad.findChildren<QPushButton*>()) {
        SCOPED_TRACE(key->accessibleName().toStdString());
        EXPECT_GE(std::min(key->contentsRect().width(), key->contentsRect().height()),
            std::max(48, (around.height() + 14) / 15));
        EXPECT_TRUE(window.rect().contains(PlaceIn(window, key)));
        EXPECT_EQ(key->focusPolicy(), Qt::NoFocus);
        expectKeyStandsOut(*key);
    }
    expectOffTheBoxAndHalfOfEachButton(window, pad);
}

// Wherever the pupil writes. Afterwards the focus is where it was.
void expectOffEveryBox(const QWidget& window, const QWidget& pad)
{
    QWidget* const before = QApplication::focusWidget();
    for (QWidget* control : focusableControls(window)) {
        if (TakesTyping(*control)) {
            SCOPED_TRACE(fullNameOf(*control));
            control->setFocus();
            QCoreApplication::processEvents();
            EXPECT_TRUE(pad.isVisible());
            expectOffTheBoxAndHalfOfEachButton(window, pad);
        }
    }
    before->setFocus();
    QCoreApplication::processEvents();
}

// Where the window leaves room beside its calculation for some shape of the keypad, it is over nothing at all.
void expectBesideCalculation(const FormWindow& form, const Keypad& pad)
{
    const std::vector<QSize> sizes = pad.SizesWith(Keypad::KeySizeIn(form.height()));
    const QSize room(form.width() - form.Area().Drawing().width() - 2 * AroundKeypad,
        form.Area().geometry().height() - 2 * AroundKeypad);
    if (std::any_of(sizes.begin(), sizes.end(), [room](QSize size) { return size.boundedTo(room) == size; })) {
        for (const QWidget* control : visibleControls(form)) {
            EXPECT_TRUE(isPartOf(pad, *control) || !PlaceIn(form, &pad).intersects(PlaceIn(form, control)))
                << fullNameOf(*control);
        }
    }
}

TEST_P(ReadingAidTest, TheKeypadIsMadeForFingersAndNeverLiesOverTheBoxThatIsWrittenIn)
{
    bool seen = false;
    inspectAll([&seen](QWidget& window) {
        auto* pad = window.findChild<Keypad*>();
        if (pad == nullptr || !pad->isVisible() || pad->window() != &window || waitsBehindBox(window)) {
            return;
        }
        seen = true;
        expectKeypad(window, *pad);
        ShowAndActivate(window);
        expectOffEveryBox(window, *pad);
        if (const auto* form = dynamic_cast<const FormWindow*>(&window)) {
            expectBesideCalculation(*form, *pad);
            expectGripStandsOut(*pad);
            expectSwitchStandsOut(*window.findChild<KeypadSwitch*>());
        }
    });
    EXPECT_EQ(seen, hasKeypad());
}

// The score alone is looked at after the exercise.
void expectNothingLost(const QWidget& pad)
{
    const auto expectNone = [](const auto& lost) {
        for (const QWidget* control : lost) {
            EXPECT_EQ(nameOf(*control), "tbResultados");
        }
    };
    expectNone(LostUnder<QAbstractButton>(pad));
    expectNone(LostUnder<QLineEdit>(pad));
    expectNone(LostUnder<QTextEdit>(pad));
}

// The button is pressed once. From then on the keypad has to see for itself what each state brings and takes away.
TEST_P(ReadingAidTest, AKeypadThatIsShownGetsOutOfTheWayOfWhatComesWithEachState)
{
    int shown = 0;
    inspectAll([&shown](QWidget& window) {
        const auto* form = dynamic_cast<const FormWindow*>(&window);
        auto* button = window.findChild<KeypadSwitch*>(QString(), Qt::FindDirectChildrenOnly);
        if (form == nullptr || button == nullptr || waitsBehindBox(window)) {
            return;
        }
        if (!form->Choices().KeypadShown) {
            button->click();
        } else if (const auto* pad = window.findChild<Keypad*>(); pad->isVisible()) {
            ++shown;
            EXPECT_TRUE(window.rect().contains(pad->geometry()));
            expectOffTheBoxAndHalfOfEachButton(window, *pad);
            expectNothingLost(*pad);
        }
    });
    EXPECT_EQ(shown > 1, hasKeypad());
}

// --- Colours ---------------------------------------------------------------------------------------------------------

// The boxes of a window that hold a text, and whether each takes typing.
std::vector<std::pair<QWidget*, bool>> textBoxes(const QWidget& window)
{
    std::vector<std::pair<QWidget*, bool>> boxes;
    for (QWidget* control : visibleControls(window)) {
        if (const auto* line = qobject_cast<const QLineEdit*>(control)) {
            // What is typed into the heading of the additions goes to the answer.
            boxes.emplace_back(control, !line->isReadOnly() && fullNameOf(*control) != "Form2.Text1");
        } else if (const auto* area = qobject_cast<const QTextEdit*>(control)) {
            boxes.emplace_back(control, !area->isReadOnly());
        }
    }
    return boxes;
}

bool isHighlighted(const QWidget& box)
{
    const auto* line = qobject_cast<const QLineEdit*>(&box);
    const auto* area = qobject_cast<const QTextEdit*>(&box);
    return line != nullptr ? line->hasSelectedText() : area->textCursor().hasSelection();
}

enum class Said { Nothing, Right, Wrong };

Said saidBy(const QWidget& box)
{
    const QString text = TextOf(box).trimmed().toLower();
    if (text == QStringLiteral("resultado correcto") || text == QStringLiteral("correcto")) {
        return Said::Right;
    }
    const bool wrong = text == QStringLiteral("resultado incorrecto") || text == QStringLiteral("error");
    return wrong ? Said::Wrong : Said::Nothing;
}

// What a colour says of an answer: only green and red have a meaning.
Said saidByColour(const QColor& colour)
{
    const auto dominates = [](int one, int other, int third) { return one > 2 * other && one > 2 * third; };
    if (dominates(colour.green(), colour.red(), colour.blue())) {
        return Said::Right;
    }
    return dominates(colour.red(), colour.green(), colour.blue()) ? Said::Wrong : Said::Nothing;
}

// What takes typing is white. What does not is grey, or green or red when it says so and is not highlighted.
void expectGround(const QWidget& box, bool takesTyping, Said said)
{
    const QColor ground = box.palette().color(QPalette::Base);
    EXPECT_EQ(saidByColour(ground), isHighlighted(box) ? Said::Nothing : said);
    if (takesTyping) {
        EXPECT_EQ(ground, QColor(Qt::white));
    } else if (saidByColour(ground) == Said::Nothing) {
        EXPECT_EQ(ground.saturation(), 0);
        EXPECT_LT(ground.lightness(), 240);
    }
}

TEST_P(ReadingAidTest, WhatTakesTypingIsWhiteARightVerdictGreenAWrongOneRedAndAllElseIsGrey)
{
    std::set<Said> seen;
    inspectAll([&seen](QWidget& window) {
        for (const auto& [box, takesTyping] : textBoxes(window)) {
            SCOPED_TRACE(fullNameOf(*box));
            const Said said = saidBy(*box);
            seen.insert(said);
            expectGround(*box, takesTyping, said);
            EXPECT_EQ(saidByColour(box->palette().color(QPalette::Highlight)), said);
        }
    });
    const std::set<std::string> judging { "AddSub", "Multiply", "Divide", "Compare", "PlaceAdd", "Powers10" };
    EXPECT_EQ(seen.count(Said::Right) == 1 && seen.count(Said::Wrong) == 1, judging.count(GetParam().Name) == 1);
}

// The widest text of a box, put into it in every state of its window that the gallery draws.
struct WidestText {
    const char* Room;
    const char* Box; // "Form2.tbResultados"
    const char* Text;
};

const WidestText widestTexts[] = {
    { "AddSub", "Form2.tbResultados", "Ejercicios:999; Errores:999" },
    { "AddSub", "Form3.tbResultados", "Ejercicios:999; Errores:999" },
    { "AddSub", "Form2.Text4", "resultado incorrecto" },
    { "AddSub", "Form3.Text4", "resultado incorrecto" },
    { "AddSub", "Form3.Text3", "-8.888.888,888888" },
    { "Multiply", "Form4.tbResultados", "Ejercicios:999; Errores:999" },
    { "Multiply", "Form4.Text1", " Resultado correcto " },
    { "Divide", "Form5.tbResultados", "Ejercicios:999; Errores:999" },
    { "Divide", "Form5.Text2", "888888888" },
    { "Divide", "Form5.Text3", "888888888,88888" },
    { "Compare", "Form6.Text2", "Aciertos: 32767;   Errores: 32767." },
    { "Powers10", "FrmUnidad.TBDatos(0)", "0,8888" },
    { "Powers10", "FrmUnidad.TBRespuesta", "0,0008888" },
    { "PlaceAdd", "FormColoSuma.TBDatos", "8,8888 + 8,8888 + 8,8888 + 8,8888 + 8,8888 + 8,8888" },
    { "PlaceAdd", "FormColoSuma.TbSumando(0)", "   8,8888" },
    { "PlaceAdd", "FormColoSuma.TbResultado", "   0,008888888" },
    { "Shopping", "Form7.TBTiempo", "60 : 00" },
    { "Shopping", "Form7.TBDinero", "32.765€" },
};

TEST_P(ReadingAidTest, EveryBoxHasRoomForItsWidestText)
{
    std::map<std::string, std::string> unseen;
    for (const WidestText& widest : widestTexts) {
        if (std::string_view(widest.Room) == GetParam().Name) {
            unseen[widest.Box] = widest.Text;
        }
    }
    const std::map<std::string, std::string> texts = unseen;
    inspectAll([&](QWidget& window) {
        for (QWidget* control : visibleControls(window)) {
            if (const auto found = texts.find(fullNameOf(*control)); found != texts.end()) {
                auto& box = dynamic_cast<TextBox&>(*control);
                const std::string before = box.Text();
                box.SetText(found->second);
                EXPECT_EQ(CutOffText(box), "") << found->first;
                box.SetText(before);
                unseen.erase(found->first);
            }
        }
    });
    EXPECT_TRUE(unseen.empty()) << unseen.begin()->first;
}

// A window that the gallery leaves out is not inspected by any of these tests.
TEST(ReadingAid, EveryWindowIsLookedAt)
{
    std::set<std::string> seen;
    Inspection inspection([&seen](QWidget& window) { seen.insert(nameOf(window)); });
    for (const GalleryRoom& room : galleryRooms) {
        room.Draw(inspection);
    }
    for (const Route& route : routes) {
        EXPECT_EQ(seen.count(route.Window), 1U) << route.Window;
    }
    for (const char* box : { "QMessageBox", "QInputDialog" }) {
        EXPECT_EQ(seen.count(box), 1U) << box;
    }
}

// Tests of the inspections: each finds what it looks for.
TEST(ReadingAid, ATextWithTooLittleRoomIsCutOff)
{
    const QString text = QStringLiteral("Escribe aquí el resultado de la operación");
    QLabel label(text);
    QPushButton button(text);
    QCheckBox checkBox(text);
    QLineEdit line(text);
    QTextEdit area(text);
    area.setLineWrapMode(QTextEdit::NoWrap);
    area.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QListWidget list;
    list.setUniformItemSizes(true);
    list.addItems({ text, QStringLiteral("1") });
    for (QWidget* control : std::initializer_list<QWidget*> { &label, &button, &checkBox, &line, &area, &list }) {
        control->resize(500, 60);
        control->show();
        EXPECT_EQ(CutOffText(*control), "") << control->metaObject()->className();
        control->resize(100, 60);
        EXPECT_NE(CutOffText(*control), "") << control->metaObject()->className();
    }
}

TEST(ReadingAid, ContrastIsReckonedAsTheGuidelinesDo)
{
    EXPECT_NEAR(Contrast(Qt::black, Qt::white), 21, 0.001);
    EXPECT_NEAR(Contrast(Qt::white, Qt::black), 21, 0.001);
    EXPECT_NEAR(Contrast(Qt::red, Qt::red), 1, 0.001);
    EXPECT_NEAR(Contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
    EXPECT_NEAR(Contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(ReadingAid, APaleTextIsAmongThePairsOfItsControl)
{
    QPushButton button(QStringLiteral("Borrar"));
    QPalette palette = button.palette();
    palette.setColor(QPalette::ButtonText, Qt::white);
    palette.setColor(QPalette::Button, Qt::yellow);
    button.setPalette(palette);
    button.resize(100, 40);
    const std::vector<ColourPair> pairs = ColourPairsOf(button);
    const auto pale = [&pairs](const char* what) {
        return std::any_of(pairs.begin(), pairs.end(),
            [what](const ColourPair& pair) { return pair.What == what && Contrast(pair.Text, pair.Ground) < 2; });
    };
    EXPECT_TRUE(pale("button"));
    EXPECT_TRUE(pale("painted button"));
    EXPECT_TRUE(pale("painted button, pressed"));
}

TEST(ReadingAid, APaleLineAndAPalePieceOfATextAreAmongThePairsOfTheirControls)
{
    QListWidget list;
    list.addItems({ QStringLiteral("Pan"), QStringLiteral("Leche") });
    QTextEdit area(QStringLiteral("Pan"));
    const auto lowestOf = [](const QWidget& control) {
        double lowest = Contrast(Qt::black, Qt::white);
        for (const ColourPair& pair : ColourPairsOf(control)) {
            lowest = std::min(lowest, Contrast(pair.Text, pair.Ground));
        }
        return lowest;
    };
    EXPECT_GE(lowestOf(list), 4.5);
    EXPECT_GE(lowestOf(area), 4.5);
    list.item(1)->setForeground(Qt::lightGray);
    area.setTextColor(Qt::lightGray);
    area.insertPlainText(QStringLiteral(" y leche"));
    EXPECT_LT(lowestOf(list), 2);
    EXPECT_LT(lowestOf(area), 2);
}

// --- Access keys -----------------------------------------------------------------------------------------------------

QChar accessKeyOf(const QString& caption)
{
    const QKeySequence key = QKeySequence::mnemonic(caption);
    return key.isEmpty() ? QChar() : QChar(key[0].key());
}

// The captions that share an access key, "Form1: &Multiplicaciones | &Mayor y menor".
std::set<std::string> sharedAccessKeys(const std::string& where, const QStringList& captions)
{
    std::map<QChar, QStringList> users;
    for (const QString& caption : captions) {
        if (const QChar key = accessKeyOf(caption); !key.isNull()) {
            users[key] << caption;
        }
    }
    std::set<std::string> shared;
    for (const auto& [key, sharers] : users) {
        if (sharers.size() > 1) {
            shared.insert(where + ": " + sharers.join(QStringLiteral(" | ")).toStdString());
        }
    }
    return shared;
}

QStringList captionsOf(const QWidget& menu)
{
    QStringList captions;
    for (const QAction* item : menu.actions()) {
        captions << item->text();
    }
    return captions;
}

// These captions are the established ones, and stay as they are: the key leads to one after the other.
std::set<std::string> establishedOnes(std::string_view room)
{
    static const std::map<std::string_view, std::set<std::string>> established {
        { "Menu", { "Form1: &Acerca de... | S&alir", "Form1: &Multiplicaciones | &Mayor y menor" } },
        { "Multiply",
            { "Form4.MnuOpc: C&ifras factor 2 | &Introducir Primer factor", "Form4.MnuOpcCi1: &1 | &10",
                "Form4.MnuOpcCi2: &1 | &10" } },
        { "Divide", { "Form5.MnuOpc: &Decimales del dividendo | &Decimales del cociente" } },
        { "Powers10",
            { "FrmUnidad.MnuOpc: &Cifras factor 1 | &Cifras factor 2",
                "FrmUnidad.MnuOpc: &Insertar factor 1... | &Insertar factor 2 ..." } },
    };
    const auto found = established.find(room);
    return found == established.end() ? std::set<std::string>() : found->second;
}

TEST_P(ReadingAidTest, NoTwoAccessKeysInSightAreTheSame)
{
    std::set<std::string> shared;
    inspectAll([&shared](QWidget& window) {
        for (const QMenu* menu : window.findChildren<QMenu*>()) {
            shared.merge(sharedAccessKeys(nameOf(window) + '.' + nameOf(*menu), captionsOf(*menu)));
        }
        QStringList captions;
        for (const QWidget* control : visibleControls(window)) {
            if (const auto* button = qobject_cast<const QAbstractButton*>(control)) {
                captions << button->text();
            } else if (const auto* label = qobject_cast<const QLabel*>(control); label && label->buddy()) {
                captions << label->text();
            } else if (const auto* bar = qobject_cast<const QMenuBar*>(control)) {
                captions << captionsOf(*bar);
            }
        }
        shared.merge(sharedAccessKeys(nameOf(window), captions));
    });
    EXPECT_EQ(shared, establishedOnes(GetParam().Name));
}

} // namespace

} // namespace numbrela
