#include "common/screen/Boxes.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>

namespace numbrela {

namespace {

QString titleOrApplications(const std::string& title)
{
    return title.empty() ? QApplication::applicationName() : QString::fromStdString(title);
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
    return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

} // namespace numbrela
