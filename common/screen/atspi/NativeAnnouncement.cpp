#include "common/screen/NativeAnnouncement.h"

#include "common/screen/Announcer.h"

#include <QAccessibleObject>

namespace numbrela {

namespace {

// To assistive tools, an announcement is a notification in the window that appears anew each time, with the text as its
// name. That is what the versions of Qt in schools can tell and readers speak.
class AnnouncerAccessible : public QAccessibleObject {
public:
    explicit AnnouncerAccessible(Announcer& announcer)
        : QAccessibleObject(&announcer)
        , announcer_(announcer)
    {
    }

    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(announcer_.parent()); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QAccessible::Role role() const override { return QAccessible::Notification; }
    QAccessible::State state() const override { return {}; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name ? announcer_.Said() : QString();
    }

private:
    Announcer& announcer_;
};

QAccessibleInterface* makeAccessible(const QString& /*className*/, QObject* object)
{
    auto* announcer = qobject_cast<Announcer*>(object);
    return announcer == nullptr ? nullptr : new AnnouncerAccessible(*announcer);
}

} // namespace

void TellAssistiveTools(Announcer& announcer)
{
    QAccessible::installFactory(&makeAccessible); // Qt keeps it only once
    QAccessibleEvent renamed(&announcer, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
    QAccessibleEvent shown(&announcer, QAccessible::ObjectShow);
    QAccessible::updateAccessibility(&shown);
}

} // namespace numbrela
