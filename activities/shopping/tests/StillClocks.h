#pragma once

#include "activities/shopping/screen/Form7.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <limits>

namespace numbrela::testing {

// Stops the clock of every shopping window shown while this lives, whoever opens it and however long a test takes: time
// passes only when the test says so.
class StillClocks : public QObject {
public:
    StillClocks() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const auto* form = event->type() == QEvent::Show ? dynamic_cast<const Form7*>(watched) : nullptr;
        if (form != nullptr) {
            form->Timer1->setInterval(std::numeric_limits<int>::max());
        }
        return false;
    }
};

} // namespace numbrela::testing
