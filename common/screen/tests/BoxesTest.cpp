#include "common/screen/Boxes.h"

#include "common/screen/FormWindow.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>

#include <map>
#include <tuple>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

QString spanish(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

// The captions of a box's buttons, without the marks of their access keys, and whether each has an icon.
std::map<std::string, bool> buttonsOf(const QDialog& box)
{
    std::map<std::string, bool> buttons;
    for (const QAbstractButton* button : box.findChildren<QAbstractButton*>()) {
        buttons[button->text().remove(u'&').toStdString()] = !button->icon().isNull();
    }
    return buttons;
}

using Buttons = std::map<std::string, bool>;

// Gives a box the keyboard, as a window manager does.
void activate(QDialog& box)
{
    box.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&box] { return QApplication::activeWindow() == &box; }));
}

class BoxesTest : public ::testing::Test {
protected:
    void SetUp() override { ShowAndActivate(form_); }

    FormWindow form_ { QStringLiteral("Form"), QStringLiteral("Form"), { 4500, 3000 }, {} };
};

TEST_F(BoxesTest, AMessageHasItsTitleOrTheApplicationsItsPlainTextAndTheButtonAceptar)
{
    const char* text = "¿Has  gastado   <b>5</b> &euro;\nde  20 €?"; // shown as it is
    ExpectMessage(spanish("Catálogo"), spanish(text), { QStringLiteral("Aceptar") });
    ShowMessage(&form_, text, "Catálogo");
    for (QWidget* window : { static_cast<QWidget*>(&form_), static_cast<QWidget*>(nullptr) }) {
        ExpectMessage(QStringLiteral("Numbrela"), spanish(text));
        ShowMessage(window, text);
    }
    EXPECT_EQ(PendingBoxes(), 0);
}

TEST_F(BoxesTest, AMessageHasNoIconsBelongsToItsWindowAndIsAnsweredByEnterEscapeOrSpace)
{
    for (const auto key : { Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space }) {
        ExpectDialog([this, key](QDialog& box) {
            EXPECT_EQ(buttonsOf(box), (Buttons { { "Aceptar", false } }));
            EXPECT_EQ(qobject_cast<QMessageBox*>(&box)->icon(), QMessageBox::NoIcon);
            EXPECT_EQ(box.parentWidget(), &form_);
            EXPECT_EQ(QApplication::activeModalWidget(), &box);
            activate(box);
            Press(key);
            EXPECT_FALSE(box.isVisible()) << key;
        });
        ShowMessage(&form_, "Hola");
        EXPECT_EQ(PendingBoxes(), 0);
    }
}

TEST_F(BoxesTest, AnInputBoxGivesWhatIsTypedAndNothingWhenItIsCancelled)
{
    const char* prompt = "¿Precio  de <b>pan</b>  &amp; sal?"; // shown as it is
    ExpectInput(spanish("División"), spanish(prompt), spanish("ñandú 3 €"), spanish("año"));
    EXPECT_EQ(AskText(&form_, prompt, "División", "año"), "ñandú 3 €");
    ExpectInput(QStringLiteral("Numbrela"), QStringLiteral("Valor:"), QStringLiteral("1")); // offers nothing
    EXPECT_EQ(AskText(nullptr, "Valor:", ""), "1");
    ExpectInput(QStringLiteral("Sumas"), QStringLiteral("Valor:"), QString(), QStringLiteral("100"));
    EXPECT_EQ(AskText(&form_, "Valor:", "Sumas", "100"), "");
    ExpectInputCancelled(QStringLiteral("Sumas"), QStringLiteral("Valor:"), QStringLiteral("25"));
    EXPECT_EQ(AskText(&form_, "Valor:", "Sumas", "100"), "");
}

TEST_F(BoxesTest, AnInputBoxOffersItsTextSelectedSoThatTypingReplacesItAndGivesNothingWhenItIsLeftByEscape)
{
    for (const auto& [key, answer] : { std::pair(Qt::Key_Return, "25"), { Qt::Key_Escape, "" } }) {
        ExpectDialog([key = key](QDialog& box) {
            activate(box);
            const auto* line = box.findChild<QLineEdit*>();
            EXPECT_TRUE(line->hasFocus());
            EXPECT_EQ(line->selectedText().toStdString(), "100");
            Type(QStringLiteral("25"));
            Press(key);
        });
        EXPECT_EQ(AskText(&form_, "Valor:", "Sumas", "100"), answer);
    }
}

TEST_F(BoxesTest, AnInputBoxHasTheButtonsAceptarAndCancelarWithoutIconsAndKeepsBlanks)
{
    ExpectDialog([this](QDialog& box) {
        EXPECT_EQ(buttonsOf(box), (Buttons { { "Aceptar", false }, { "Cancelar", false } }));
        EXPECT_EQ(box.parentWidget(), &form_);
        EXPECT_TRUE(box.isModal());
        EXPECT_EQ(box.findChild<QLabel*>()->textFormat(), Qt::PlainText);
        QTest::mouseClick(box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    EXPECT_EQ(AskText(&form_, "Valor:", "Sumas", "  100 "), "  100 ");
}

TEST_F(BoxesTest, AnInputBoxIsSpokenByItsPromptOrWithoutOneByItsTitle)
{
    for (const auto& [prompt, title, name] :
        { std::tuple("Valor:", "Sumas", "Valor:"), { "", "Introducir divisor", "Introducir divisor" } }) {
        ExpectDialog([name = name](QDialog& box) {
            QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(box.findChild<QLineEdit*>());
            EXPECT_EQ(spoken->text(QAccessible::Name).toStdString(), name);
            box.reject();
        });
        AskText(&form_, prompt, title);
        EXPECT_EQ(PendingBoxes(), 0);
    }
}

TEST_F(BoxesTest, AnInputBoxShowsTheWholeTextThatItOffersAsFarAsTheScreenGoes)
{
    for (const std::string& offered :
        { std::string("Un kilo de chuletas de cordero y otro de ternera"), std::string(1000, 'W') }) {
        ExpectDialog([&](QDialog& box) {
            const auto* line = box.findChild<QLineEdit*>();
            const bool isShort = offered.size() < 1000;
            EXPECT_EQ(line->width() > line->fontMetrics().horizontalAdvance(line->text()), isShort);
            EXPECT_LE(box.width(), box.screen()->availableSize().width());
            box.reject();
        });
        AskText(&form_, "Nombre:", "Modificar producto", offered);
    }
    EXPECT_EQ(PendingBoxes(), 0);
}

// A window manager writes the title in letters that are as large as it likes, and puts its buttons beside it.
TEST_F(BoxesTest, AnInputBoxIsWiderThanItsTitle)
{
    const std::string title = "Introducir el segundo factor de la multiplicación de números decimales";
    ExpectDialog([](QDialog& box) {
        QFont bold = QApplication::font();
        bold.setBold(true);
        constexpr int windowButtons = 100;
        EXPECT_GT(box.width(), QFontMetrics(bold).horizontalAdvance(box.windowTitle()) + windowButtons);
        box.reject();
    });
    AskText(&form_, "Valor:", title);
    EXPECT_EQ(PendingBoxes(), 0);
}

// In pixels at the design size, and twice that in a window twice as large.
void expectEasyToPress(const QDialog& box, int scale)
{
    for (const auto* button : box.findChild<QDialogButtonBox*>()->findChildren<QAbstractButton*>()) {
        const int caption = button->fontMetrics().horizontalAdvance(button->text().remove(u'&'));
        EXPECT_GE(button->width() - caption, caption > 0 ? 16 * scale : 0) << button->text().toStdString();
        EXPECT_GE(button->height(), 28 * scale) << button->text().toStdString();
    }
}

TEST_F(BoxesTest, BoxesWriteInTheFontOfTheirWindowWithButtonsToMatchAndAnInputBoxHasRoomForAnAnswerOfFortyCharacters)
{
    for (const int scale : { 1, 2 }) {
        const auto expectFont = [scale](QDialog& box) {
            for (const QWidget* part : box.findChildren<QWidget*>()) {
                EXPECT_EQ(part->font().pixelSize(), 16 * scale) << part->metaObject()->className();
            }
            if (const auto* line = box.findChild<QLineEdit*>()) {
                EXPECT_GE(box.width(), 400 * scale);
                EXPECT_LE(box.width(), box.screen()->availableSize().width());
                EXPECT_GT(line->width(), line->fontMetrics().horizontalAdvance(QString(40, u'5')));
            }
            expectEasyToPress(box, scale);
            box.accept();
        };
        ExpectDialog(expectFont);
        ShowMessage(&form_, "Hola");
        ExpectDialog(expectFont);
        AskYesNo(&form_, "¿Otra vez?");
        ExpectDialog(expectFont);
        AskText(&form_, "Valor:", "Sumas");
        EXPECT_EQ(PendingBoxes(), 0);
        form_.resize(2 * form_.size());
        QCoreApplication::processEvents();
    }
}

} // namespace

} // namespace numbrela
