#include "common/core/RunTimeError.h"

namespace numbrela {

RunTimeError::RunTimeError(Kind kind, const std::string& detail)
    : std::runtime_error(detail)
    , kind_(kind)
{
}

const char* RunTimeError::KindName() const noexcept
{
    switch (kind_) {
    case Kind::Overflow:
        return "Desbordamiento";
    case Kind::InvalidArgument:
        return "Argumento no válido";
    case Kind::TypeMismatch:
        return "El tipo de dato no coincide";
    case Kind::File:
        break;
    }
    return "Error de archivo";
}

} // namespace numbrela
