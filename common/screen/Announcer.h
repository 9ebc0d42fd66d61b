#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace numbrela {

// What a window announces. To assistive tools it is a notification in the window that appears anew each time, with the
// text as its name.
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
    QTimer afterTheRest_; // runs out when everything else that happens now has been told
    QString said_;
};

} // namespace numbrela
