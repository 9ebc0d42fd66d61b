#include "common/screen/Announcement.h"

#include "common/screen/Announcer.h"

#include <QLineEdit>

namespace numbrela {

void Announce(QWidget& control, const QString& text)
{
    if (!QAccessible::isActive() || text.trimmed().isEmpty()) {
        return;
    }
    QWidget& window = *control.window();
    auto* announcer = window.findChild<Announcer*>(QString(), Qt::FindDirectChildrenOnly);
    if (announcer == nullptr) {
        announcer = new Announcer(window);
    }
    announcer->Announce(text.trimmed());
}

void AnnounceContents(QLineEdit& box)
{
    Announce(box, [&box] {
        const QString name = QAccessible::queryAccessibleInterface(&box)->text(QAccessible::Name);
        const QString contents = box.text().trimmed();
        return name + QStringLiteral(": ") + (contents.isEmpty() ? QStringLiteral("en blanco") : contents);
    });
}

QString InWords(QString exercise)
{
    return exercise.replace(QStringLiteral(" + "), QStringLiteral(" más "))
        .replace(QStringLiteral(" - "), QStringLiteral(" menos "))
        .replace(QStringLiteral(" × "), QStringLiteral(" por "))
        .replace(QStringLiteral(" ÷ "), QStringLiteral(" entre "));
}

} // namespace numbrela
