#include "common/screen/NativeKeys.h"

namespace numbrela {

// Qt passes on what a key writes, and not which key it is.
int NativeKeyCode(const QKeyEvent& /*event*/)
{
    return 0;
}

// A browser repeats only the press of a held key, and says that it is a repetition.
void AskForRealReleasesOnly() { }

std::vector<quint32> KeysDown(const std::vector<quint32>& /*known*/)
{
    return {};
}

// Asked of keys that KeysDown() has found, and so never.
bool WasPressedBefore(const QKeyEvent& /*press*/, const QElapsedTimer& /*timer*/)
{
    return true;
}

} // namespace numbrela
