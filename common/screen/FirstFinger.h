#pragma once

#include <optional>

class QEventPoint;
class QTouchEvent;

namespace numbrela {

// The finger that came down first on a control. No other counts as long as any is down.
class FirstFinger {
public:
    // Where it is in the event, valid as long as that; null if it is not there.
    const QEventPoint* PointIn(const QTouchEvent& event);

    void Forget() { id_.reset(); }

private:
    std::optional<int> id_;
};

} // namespace numbrela
