#pragma once

#include "foundation/Object.h"
#include "foundation/Value.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
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
    using Getter = std::function<Value(const T&)>;
    using Setter = std::function<void(T&, const Value&)>;
    using Method = std::function<Value(T&, const std::vector<Value>&)>;

    struct Member {
        Member(std::string name, Getter get, Setter set = {})
            : Name(std::move(name)), Get(std::move(get)), Set(std::move(set)) {}

        Member(std::string name, Getter get, Setter set, Method call)
            : Name(std::move(name)), Get(std::move(get)), Set(std::move(set)),
              Call(std::move(call)) {}

        std::string Name;
        Getter Get;
        Setter Set;
        Method Call;
    };

    MemberTable(std::initializer_list<Member> members) {
        for (const Member& member : members)
            mMembers.emplace(member.Name, member);
    }

    /// Where a member is missing, or cannot be used that way, these give false, and the object's
    /// base class answers.
    bool Get(const T& object, std::string_view name, Value& result) const {
        const Member* member = Find(name);
        if (!member || !member->Get) return false;
        result = member->Get(object);
        return true;
    }

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
    struct Hash {
        using is_transparent = void;

        std::size_t operator()(std::string_view text) const {
            return std::hash<std::string_view>()(text);
        }
    };

    const Member* Find(std::string_view name) const {
        const auto found = mMembers.find(name);
        return found == mMembers.end() ? nullptr : &found->second;
    }

    std::unordered_map<std::string, Member, Hash, std::equal_to<>> mMembers;
};

} // namespace paperkite
