#include "common/screen/Boxes.h"

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

// What is offered as an answer is seen whole, unless it is very long.
int widthFor(const QString& text, const QLineEdit& line)
{
    constexpr int besideTheText = 16; // pixels: the frame, its margins and the caret
    return std::min(
        line.fontMetrics().horizontalAdvance(text) + besideTheText, line.screen()->availableSize().width() / 2);
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

bool AskYesNo(QWidget* parent, const std::string& text, const std::string& title)
{
    QMessageBox box(QMessageBox::NoIcon, titleOrApplications(title), QString::fromStdString(text),
        QMessageBox::Yes | QMessageBox::No, parent);
    box.setTextFormat(Qt::PlainText);
    box.setAttribute(Qt::WA_WindowPropagation);
    box.setDefaultButton(QMessageBox::Yes);
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
    line.setMinimumWidth(widthFor(box.textValue(), line));
    return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

} // namespace numbrela
