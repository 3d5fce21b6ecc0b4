#pragma once

#include <exception>
#include <source_location>
#include <string>

namespace paperkite {

/// The run-time errors that components raise and expect, by number.
enum class ErrorNumber : int {
    InvalidCall = 5,
    Overflow = 6,
    SubscriptOutOfRange = 9,
    TypeMismatch = 13,
    FileNotFound = 53,
    FileExists = 58,
    PermissionDenied = 70,
    PathOrFileAccess = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    CannotCreateComponent = 429,
    NoSuchMember = 438,
    KeyAlreadyThere = 457,
};

/// The one exception of the library: what ends a procedure. Expected failures (a file that does not
/// parse, say) are values with a message instead.
class Error : public std::exception {
public:
    /// An empty description is replaced by the standard text of the number.
    explicit Error(ErrorNumber number, std::string description = {},
                   std::source_location where = std::source_location::current());
    /// For numbers of other components, which are passed on as they came.
    Error(int number, std::string description,
          std::source_location where = std::source_location::current());

    int GetNumber() const { return mNumber; }
    const std::string& GetDescription() const { return mDescription; }

    /// Where the error was raised; its line is the one that a report names.
    const std::source_location& GetWhere() const { return mWhere; }
    const char* what() const noexcept override { return mDescription.c_str(); }

private:
    int mNumber;
    std::string mDescription;
    std::source_location mWhere;
};

/// Raises an Error at the caller's place.
[[noreturn]] void RaiseError(ErrorNumber number, std::string description = {},
                             std::source_location where = std::source_location::current());

/// Runs a stretch whose failures are deliberately ignored; true when it came to its end.
template <class Action>
bool Ignoring(Action&& action) noexcept {
    try {
        action();
        return true;
    } catch (...) {
        return false;
    }
}

} // namespace paperkite
