#pragma once

#include "foundation/Object.h"
#include "foundation/Value.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace paperkite {

/// The members that the objects of one class offer by name: one table a class, looked up by hash.
///
///     const MemberTable<CodeItem> kMembers{
///         {"Name", [](const CodeItem& item) { return Value(item.GetName()); }},
///         {"RootFlag", [](const CodeItem& i) { … }, [](CodeItem& i, const Value& v) { … }},
///     };
template <class T>
class MemberTable {
public:
    using Getter = Value (*)(const T&);
    using Setter = void (*)(T&, const Value&);
    using Method = Value (*)(T&, const std::vector<Value>&);

    struct Member {
        Member(std::string name, Getter get, Setter set = nullptr)
            : Name(std::move(name)), Get(std::move(get)), Set(std::move(set)) {}

        Member(std::string name, Getter get, Setter set, Method call)
            : Name(std::move(name)), Get(std::move(get)), Set(std::move(set)),
              Call(std::move(call)) {}

        std::string Name;
        Getter Get;
        Setter Set;
        Method Call = nullptr;
    };

    MemberTable(std::initializer_list<Member> members) : mMembers(members) {
        std::size_t size = 8;
        while (size < 2 * mMembers.size())
            size *= 2;
        mPlaces.assign(size, kFree);
        for (std::size_t at = 0; at < mMembers.size(); ++at)
            mPlaces[PlaceOf(mMembers[at].Name)] = static_cast<std::uint16_t>(at);
    }

    /// The getter of a member that can be read, or nullptr.
    Getter FindGetter(std::string_view name) const {
        const Member* member = Find(name);
        return member ? member->Get : nullptr;
    }

    /// Where a member is missing, or cannot be used that way, these give false, and the object's
    /// base class answers.
    bool Set(T& object, std::string_view name, const Value& value) const {
        const Member* member = Find(name);
        if (!member || !member->Set) return false;
        member->Set(object, value);
        return true;
    }

    bool Call(T& object, std::string_view name, const std::vector<Value>& arguments,
              Value& result) const {
        const Member* member = Find(name);
        if (!member || !member->Call) return false;
        result = member->Call(object, arguments);
        return true;
    }

private:
    static constexpr std::uint16_t kFree = 0xFFFF;

    /// Names differ in their lengths and ends already, so that not all of one need be looked at.
    static std::size_t HashOf(std::string_view name) {
        if (name.empty()) return 0;
        const auto letter = [&](std::size_t at) { return static_cast<unsigned char>(name[at]); };
        return name.size() + 5 * letter(0) + 17 * letter(name.size() / 2) +
               37 * letter(name.size() - 1);
    }

    /// Where a name stands, or the free place where it would.
    std::size_t PlaceOf(std::string_view name) const {
        const std::size_t mask = mPlaces.size() - 1;
        std::size_t place = HashOf(name) & mask;
        while (mPlaces[place] != kFree && mMembers[mPlaces[place]].Name != name)
            place = (place + 1) & mask;
        return place;
    }

    const Member* Find(std::string_view name) const {
        const std::uint16_t at = mPlaces[PlaceOf(name)];
        return at == kFree ? nullptr : &mMembers[at];
    }

    std::vector<Member> mMembers;
    /// An open hash table over them, at most half full.
    std::vector<std::uint16_t> mPlaces;
};

} // namespace paperkite
