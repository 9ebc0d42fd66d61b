#include "common/screen/Boxes.h"

#include "common/screen/FormWindow.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>

#include <algorithm>

namespace numbrela {

namespace {

QString titleOrApplications(const std::string& title)
{
    return title.empty() ? QApplication::applicationName() : QString::fromStdString(title);
}

// A title as a window manager may write it, with room for an icon and three buttons beside it, each at most twice as
// wide as the letters are high.
int widthOfTitle(const QString& title)
{
    QFont font = QApplication::font("QMdiSubWindowTitleBar"); // the system's own, where it says which
    font.setBold(true);
    const QFontMetrics metrics(font);
    return metrics.horizontalAdvance(title) + 4 * 2 * metrics.height();
}

// The input line sets the width of its box: wide enough for the title, for the whole default text and for an answer of
// 40 characters. Only a text wider than the screen scrolls.
int widthOfLine(const QLineEdit& line, const QString& title)
{
    constexpr int besideTheText = 16; // pixels: the frame, its margins and the caret
    constexpr int besideTheLine = 64; // the margins of the box, and a window's frame
    constexpr int roomForLetters = 40;
    constexpr int leastHeights = 25; // of a letter: 400 pixels at the design size
    const QFontMetrics metrics = line.fontMetrics();
    const int text
        = std::max(metrics.horizontalAdvance(line.text()), metrics.horizontalAdvance(QString(roomForLetters, u'0')));
    const int wanted
        = std::max({ text + besideTheText, widthOfTitle(title), leastHeights * line.fontInfo().pixelSize() });
    return std::min(wanted, line.screen()->availableSize().width() - besideTheLine);
}

} // namespace

void ShowMessage(QWidget* parent, const std::string& text, const std::string& title)
{
    QMessageBox box(
        QMessageBox::NoIcon, titleOrApplications(title), QString::fromStdString(text), QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.setAttribute(Qt::WA_WindowPropagation);
    box.exec();
}

bool AskYesNo(QWidget* parent, const std::string& text, const std::string& title, Answer onEnter)
{
    QMessageBox box(QMessageBox::NoIcon, titleOrApplications(title), QString::fromStdString(text),
        QMessageBox::Yes | QMessageBox::No, parent);
    box.setTextFormat(Qt::PlainText);
    box.setAttribute(Qt::WA_WindowPropagation);
    box.setDefaultButton(onEnter == Answer::Yes ? QMessageBox::Yes : QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

std::string AskText(
    QWidget* parent, const std::string& prompt, const std::string& title, const std::string& defaultText)
{
    QInputDialog box(parent);
    box.setAttribute(Qt::WA_WindowPropagation);
    box.setWindowTitle(titleOrApplications(title));
    box.setLabelText(QString::fromStdString(prompt));
    box.findChild<QLabel*>()->setTextFormat(Qt::PlainText);
    box.setTextValue(QString::fromStdString(defaultText));
    auto& line = *box.findChild<QLineEdit*>();
    if (prompt.empty()) {
        line.setAccessibleName(box.windowTitle());
    }
    line.setMinimumWidth(widthOfLine(line, box.windowTitle()));
    if (const auto* form = dynamic_cast<const FormWindow*>(parent)) {
        form->LendKeypad(box);
    }
    return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

} // namespace numbrela
