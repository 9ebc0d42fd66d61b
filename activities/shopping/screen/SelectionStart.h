#pragma once

class QListView;

namespace numbrela {

// Lets the keys that move the selection begin at the first line of a list, or at the last one, when none is selected.
// Qt would begin beside its current line, which a list that has got the focus has without showing it.
void BeginSelectionAtAnEnd(QListView& list);

} // namespace numbrela
