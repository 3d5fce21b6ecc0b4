#pragma once

#include <string>

namespace paperkite {

/// Carries the public enumerations of the component library; it has no members of its own.
class Enums {};

enum ProjectSourceEnum { ProjectSourceExistingFile = 0 };

enum MemberTypeEnum {
    MemberTypeMethod = 1,
    MemberTypeProperty = 2,
    MemberTypeEvent = 3,
    MemberTypeEnumeration = 4,
    MemberTypeStructure = 5,
};

struct MemberInfo {
    std::string MemberName;
    MemberTypeEnum MemberType = MemberTypeMethod;
};

} // namespace paperkite
