#include "tests/gallery/Writing.h"

#include "activities/divide/screen/WorkingGridBox.h"
#include "tests/support/Driver.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QMenuBar>
#include <QStringList>

namespace numbrela::testing {

namespace {

QStringList linesOf(const QAbstractItemView& list)
{
    QStringList lines;
    for (int row = 0; row < list.model()->rowCount(); ++row) {
        lines.append(list.model()->index(row, 0).data().toString());
    }
    return lines;
}

QStringList captionsOf(const QMenuBar& bar)
{
    QStringList captions;
    for (const QAction* action : bar.actions()) {
        captions.append(action->text());
    }
    return captions;
}

QStringList linesOf(const QWidget& control)
{
    if (const auto* list = qobject_cast<const QAbstractItemView*>(&control)) {
        return linesOf(*list);
    }
    if (const auto* bar = qobject_cast<const QMenuBar*>(&control)) {
        return captionsOf(*bar);
    }
    if (const auto* paper = qobject_cast<const WorkingGridBox*>(&control)) {
        return paper->SpokenText().split(u'\n');
    }
    if (const auto* tick = qobject_cast<const QCheckBox*>(&control)) {
        return { (tick->isChecked() ? QStringLiteral("[x] ") : QStringLiteral("[ ] ")) + tick->text() };
    }
    return TextOf(control).split(u'\n');
}

QString withoutBlanksBehind(QString line)
{
    while (line.endsWith(u' ')) {
        line.chop(1);
    }
    return line;
}

} // namespace

std::string WritingIn(const QWidget& window)
{
    QString writing = window.windowTitle() + u'\n';
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        for (const QString& line : control->isVisible() ? linesOf(*control) : QStringList()) {
            const QString text = withoutBlanksBehind(line);
            if (!text.isEmpty()) {
                writing += control->objectName() + QStringLiteral(": ") + text + u'\n';
            }
        }
    }
    return writing.toStdString();
}

} // namespace numbrela::testing
