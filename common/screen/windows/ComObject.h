#pragma once

#include <windows.h>

#include <unknwn.h>

#include <memory>

namespace numbrela {

struct ReleaseComObject {
    void operator()(IUnknown* object) const { object->Release(); }
};

// Uses an object of COM, which ends with its last user.
template <typename Interface>
using ComObject = std::unique_ptr<Interface, ReleaseComObject>;

} // namespace numbrela
