#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace numbrela {

// What a window announces, when everything else has been told. How it gets to assistive tools is the operating system's
// (NativeAnnouncement.h).
class Announcer : public QObject {
    Q_OBJECT

public:
    explicit Announcer(QWidget& window);

    void Announce(const QString& text);

    const QString& Said() const { return said_; }
    QWidget& Window() const { return window_; }

protected:
    bool eventFilter(QObject* window, QEvent* event) override;

private:
    bool isInFront() const;
    void say();

    QWidget& window_;
    QStringList waiting_;
    QTimer afterTheRest_; // runs out when everything else that happens now has been told
    QString said_;
};

} // namespace numbrela
