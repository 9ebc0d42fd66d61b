#pragma once

#include <QGuiApplication>

#include <cstdlib>
#include <memory>

struct xcb_connection_t;

namespace numbrela {

// The program's connection to the X server; null if it does not run on one. Qt's platform without a display has the
// interface, but no connection.
inline xcb_connection_t* XConnection()
{
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 == nullptr ? nullptr : x11->connection();
}

struct Free {
    void operator()(void* reply) const { std::free(reply); } // NOLINT: the library allocates with malloc
};

// What the X server has answered.
template <typename Type>
using Reply = std::unique_ptr<Type, Free>;

} // namespace numbrela
