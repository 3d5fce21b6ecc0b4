#include "foundation/Error.h"

#include <utility>

namespace paperkite {

namespace {

const char* StandardText(int number) {
    switch (static_cast<ErrorNumber>(number)) {
    case ErrorNumber::InvalidCall:
        return "Invalid procedure call or argument";
    case ErrorNumber::Overflow:
        return "Overflow";
    case ErrorNumber::SubscriptOutOfRange:
        return "Subscript out of range";
    case ErrorNumber::TypeMismatch:
        return "Type mismatch";
    case ErrorNumber::FileNotFound:
        return "File not found";
    case ErrorNumber::FileExists:
        return "File already exists";
    case ErrorNumber::PermissionDenied:
        return "Permission denied";
    case ErrorNumber::PathOrFileAccess:
        return "Path or file access error";
    case ErrorNumber::PathNotFound:
        return "Path not found";
    case ErrorNumber::ObjectNotSet:
        return "Object variable not set";
    case ErrorNumber::CannotCreateComponent:
        return "Component can't create object";
    case ErrorNumber::NoSuchMember:
        return "Object doesn't have this member";
    case ErrorNumber::KeyAlreadyThere:
        return "This key is already in the collection";
    }
    return "Application-defined error";
}

} // namespace

Error::Error(ErrorNumber number, std::string description, std::source_location where)
    : Error(static_cast<int>(number), std::move(description), where) {}

Error::Error(int number, std::string description, std::source_location where)
    : mNumber(number),
      mDescription(description.empty() ? StandardText(number) : std::move(description)),
      mWhere(where) {}

void RaiseError(ErrorNumber number, std::string description, std::source_location where) {
    throw Error(number, std::move(description), where);
}

} // namespace paperkite
