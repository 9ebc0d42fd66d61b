#include "activities/shopping/screen/SelectionStart.h"

#include <QKeyEvent>
#include <QListView>

namespace numbrela {

SelectionStart::SelectionStart(QListView* list)
    : QObject(list)
    , list_(list)
{
}

bool SelectionStart::eventFilter(QObject* watched, QEvent* event)
{
    return (event->type() == QEvent::KeyPress && startsBy(static_cast<QKeyEvent*>(event)->key()))
        || QObject::eventFilter(watched, event);
}

bool SelectionStart::startsBy(int key)
{
    const int lines = list_->model()->rowCount();
    if (lines == 0 || list_->selectionModel()->hasSelection()) {
        return false;
    }
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_PageUp:
    case Qt::Key_Space:
        list_->setCurrentIndex(list_->model()->index(0, 0));
        return true;
    case Qt::Key_End:
    case Qt::Key_PageDown:
        list_->setCurrentIndex(list_->model()->index(lines - 1, 0));
        return true;
    default:
        return false;
    }
}

} // namespace numbrela
