#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace numbrela {

// What a window announces. To assistive tools it is a notification that belongs to the window, is called what was
// announced last, and appears on the screen again each time.
class Announcer : public QObject {
    Q_OBJECT

public:
    explicit Announcer(QWidget& window);

    void Announce(const QString& text);

    const QString& Said() const { return said_; }

protected:
    bool eventFilter(QObject* window, QEvent* event) override;

private:
    bool isInFront() const;
    void say();

    QWidget& window_;
    QStringList waiting_;
    QTimer afterTheRest_;
    QString said_;
};

} // namespace numbrela
