#pragma once

#include <QtGlobal>

#include <vector>

namespace numbrela {

// The scan codes, as Qt's key events have them, of the keys behind these virtual keys. Of a virtual key that two keys
// of the keyboard have, such as Enter or Home, the codes are given that are among the known ones; if none is, it has
// none, because the wrong key would be held to be down for ever.
std::vector<quint32> ScanCodesOf(const std::vector<int>& virtualKeys, const std::vector<quint32>& known);

} // namespace numbrela
