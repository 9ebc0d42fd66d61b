#pragma once

#include <stdexcept>
#include <string>

namespace numbrela {

// A failure. Code that knows what to do about one catches it on the spot; any other reaches the application object,
// which says what happened and ends the program.
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
