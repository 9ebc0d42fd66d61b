#include "tests/support/Boxes.h"

#include "tests/support/Driver.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QTest>

#include <deque>

namespace numbrela::testing {

namespace {

using Answer = std::function<void(QDialog&)>;

std::deque<Answer>& expected()
{
    static std::deque<Answer> boxes;
    return boxes;
}

QString withoutAccessKey(QString caption)
{
    return caption.remove(QLatin1Char('&'));
}

void answer(QDialog& box)
{
    if (expected().empty()) {
        QString text;
        for (const QLabel* label : box.findChildren<QLabel*>()) {
            text += label->text();
        }
        ADD_FAILURE() << "a box that nobody expected: " << box.windowTitle().toStdString() << ": "
                      << text.toStdString();
        box.reject();
        return;
    }
    const Answer next = std::move(expected().front());
    expected().pop_front();
    next(box);
    if (box.isVisible()) {
        ADD_FAILURE() << "a box was not closed by its answer: " << box.windowTitle().toStdString();
        box.reject();
    }
}

// Sees every dialog that opens.
class BoxWatcher : public QObject {
public:
    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::Show) {
            if (const QPointer<QDialog> box = qobject_cast<QDialog*>(object)) {
                DoSoon(*box, [box] { answer(*box); });
            }
        }
        return false;
    }
};

void expect(Answer answer)
{
    expected().push_back(std::move(answer));
}

QInputDialog* checkedInputBox(QDialog& box, const QString& title, const QString& prompt)
{
    auto* input = qobject_cast<QInputDialog*>(&box);
    EXPECT_NE(input, nullptr) << "not an input box: " << box.windowTitle().toStdString();
    if (input != nullptr) {
        EXPECT_EQ(input->windowTitle().toStdString(), title.toStdString());
        EXPECT_EQ(input->labelText().toStdString(), prompt.toStdString());
    }
    return input;
}

void typeOver(QInputDialog& input, const QString& text)
{
    auto* line = input.findChild<QLineEdit*>();
    ASSERT_NE(line, nullptr);
    line->selectAll();
    QTest::keyClick(line, Qt::Key_Delete);
    line->insert(text);
}

} // namespace

void WatchForBoxes()
{
    auto* watcher = new BoxWatcher;
    watcher->setParent(qApp);
    qApp->installEventFilter(watcher);
}

void ExpectMessage(QAnyStringView title, QAnyStringView text, const QStringList& buttons, QAnyStringView press)
{
    expect([title = title.toString(), text = text.toString(), buttons, press = press.toString()](QDialog& dialog) {
        auto* box = qobject_cast<QMessageBox*>(&dialog);
        ASSERT_NE(box, nullptr) << "not a message box: " << dialog.windowTitle().toStdString();
        EXPECT_EQ(box->windowTitle().toStdString(), title.toStdString());
        EXPECT_EQ(box->text().toStdString(), text.toStdString());
        EXPECT_EQ(box->icon(), QMessageBox::NoIcon);
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        QStringList captions;
        QAbstractButton* chosen = nullptr;
        for (QAbstractButton* button : box->buttons()) {
            captions << withoutAccessKey(button->text());
            chosen = captions.last() == press ? button : chosen;
        }
        captions.sort();
        QStringList wanted = buttons;
        wanted.sort();
        EXPECT_EQ(captions.join(u'|').toStdString(), wanted.join(u'|').toStdString());
        ASSERT_NE(chosen, nullptr) << "no such button: " << press.toStdString();
        QTest::mouseClick(chosen, Qt::LeftButton);
    });
}

void ExpectInput(QAnyStringView title, QAnyStringView prompt, QAnyStringView answer, QAnyStringView defaultText)
{
    expect([title = title.toString(), prompt = prompt.toString(), answer = answer.toString(),
               defaultText = defaultText.toString()](QDialog& dialog) {
        QInputDialog* input = checkedInputBox(dialog, title, prompt);
        ASSERT_NE(input, nullptr);
        EXPECT_EQ(input->textValue().toStdString(), defaultText.toStdString());
        typeOver(*input, answer);
        QTest::keyClick(input->findChild<QLineEdit*>(), Qt::Key_Return);
    });
}

void ExpectInputCancelled(QAnyStringView title, QAnyStringView prompt, QAnyStringView typed)
{
    expect([title = title.toString(), prompt = prompt.toString(), typed = typed.toString()](QDialog& dialog) {
        QInputDialog* input = checkedInputBox(dialog, title, prompt);
        ASSERT_NE(input, nullptr);
        typeOver(*input, typed);
        for (QAbstractButton* button : input->findChildren<QAbstractButton*>()) {
            if (withoutAccessKey(button->text()) == QStringLiteral("Cancelar")) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        ADD_FAILURE() << "the box has no button \"Cancelar\"";
    });
}

void ExpectDialog(std::function<void(QDialog&)> answer)
{
    expect(std::move(answer));
}

int PendingBoxes()
{
    return static_cast<int>(expected().size());
}

void FailForPendingBoxes()
{
    if (!expected().empty()) {
        ADD_FAILURE() << expected().size() << " expected boxes never opened";
        expected().clear();
    }
}

} // namespace numbrela::testing
