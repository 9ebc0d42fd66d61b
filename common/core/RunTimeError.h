#pragma once

#include <stdexcept>
#include <string>

namespace numbrela {

// A failure that the program has no better answer to than to say what happened and to end.
// Whoever has a better answer catches it on the spot; every other one reaches the application object.
class RunTimeError : public std::runtime_error {
public:
    enum class Kind { Overflow, InvalidArgument, TypeMismatch, File };

    // `detail` is a Spanish sentence for the person at the screen, UTF-8; what() returns it.
    RunTimeError(Kind kind, const std::string& detail);

    Kind ErrorKind() const noexcept { return kind_; }

    // The Spanish name of the kind, for example "Desbordamiento".
    const char* KindName() const noexcept;

private:
    Kind kind_;
};

} // namespace numbrela
