#include "common/screen/Announcer.h"

#include "common/screen/NativeAnnouncement.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace numbrela {

namespace {

// Ends each sentence with a full stop if it has no end of its own.
QString oneText(const QStringList& sentences)
{
    QString text;
    for (const QString& sentence : sentences) {
        if (!text.isEmpty()) {
            text += QStringLiteral(".?!").contains(text.back()) ? QStringLiteral(" ") : QStringLiteral(". ");
        }
        text += sentence;
    }
    return text;
}

} // namespace

Announcer::Announcer(QWidget& window)
    : QObject(&window)
    , window_(window)
{
    afterTheRest_.setSingleShot(true);
    connect(&afterTheRest_, &QTimer::timeout, this, &Announcer::say);
    window.installEventFilter(this);
}

void Announcer::Announce(const QString& text)
{
    waiting_ << text;
    afterTheRest_.start(0);
}

// A window that opens or comes back to the front is announced by its own name first.
bool Announcer::eventFilter(QObject* window, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && !waiting_.isEmpty()) {
        afterTheRest_.start(0);
    }
    return QObject::eventFilter(window, event);
}

// A box that opens in the same moment is already in front of its window.
bool Announcer::isInFront() const
{
    const QWidget* modal = QApplication::activeModalWidget();
    return window_.isActiveWindow() && (modal == nullptr || modal == &window_);
}

void Announcer::say()
{
    if (!isInFront()) {
        return; // until it is
    }
    said_ = oneText(waiting_);
    waiting_.clear();
    TellAssistiveTools(*this);
}

} // namespace numbrela
