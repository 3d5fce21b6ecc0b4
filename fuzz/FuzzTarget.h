#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite::fuzz {

/// A property that does not hold for an input.
class Broken : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

/// Ends the run of an input when a property does not hold.
inline void Require(bool holds, const std::string& what) {
    if (!holds) throw Broken(what);
}

/// One kind of text that comes from outside: takes any bytes and checks what must hold for all of
/// them. Each source in this folder that ends in "Fuzz.cpp" defines one, under the name of the
/// folder of its corpus:
///
///     const FuzzTarget target("contentfile", [](std::string_view input) { … Require(…); });
class FuzzTarget {
public:
    using Body = void (*)(std::string_view input);

    FuzzTarget(const char* name, Body run) : Name(name), Run(run) { All().push_back(this); }
    FuzzTarget(const FuzzTarget&) = delete;
    FuzzTarget& operator=(const FuzzTarget&) = delete;

    /// The targets of this program.
    static std::vector<const FuzzTarget*>& All() {
        static std::vector<const FuzzTarget*> all;
        return all;
    }

    const char* const Name;
    const Body Run;
};

} // namespace paperkite::fuzz
