#include "activities/shopping/screen/Beep.h"

#include <QApplication>

namespace numbrela {

namespace {

int count = 0;

} // namespace

void Beep()
{
    ++count;
    QApplication::beep();
}

int BeepCount()
{
    return count;
}

} // namespace numbrela
