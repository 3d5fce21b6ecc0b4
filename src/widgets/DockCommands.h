#pragma once

#include "foundation/Collection.h"
#include "widgets/DockCommand.h"

#include <string>

namespace paperkite {

/// Commands by name, ignoring case, and by position from 1, in the order of adding.
class DockCommands {
public:
    explicit DockCommands(DockHost* host) : mHost(host) {}

    DockCommands(const DockCommands&) = delete;
    DockCommands& operator=(const DockCommands&) = delete;
    ~DockCommands();

    /// A name that is already there raises error 457.
    Ref<DockCommand> Add(const std::string& name, const std::string& caption = {},
                         const std::string& image = {});
    Ref<DockCheckCommand> AddCheck(const std::string& name, const std::string& caption = {},
                                   const std::string& image = {});
    /// A command that opens a list of commands.
    Ref<DockCommand> AddPopup(const std::string& name, const std::string& caption = {},
                              const std::string& image = {});
    /// A command of another list of the same host, such as one that a pop-up shows as well.
    void Add(const Ref<DockCommand>& command);

    /// A name or position that is not there raises error 5 or 9.
    Ref<DockCommand> Item(const std::string& name) const;
    Ref<DockCommand> Item(std::size_t position) const;
    /// The check command of that name; error 13 when it is another kind of command.
    Ref<DockCheckCommand> CheckItem(const std::string& name) const;
    /// The command of that name, or nothing.
    Ref<DockCommand> Find(const std::string& name) const;
    bool Contains(const std::string& name) const;

    std::size_t Count() const { return mCommands.Count(); }

    /// Its buttons go with it.
    void Remove(const std::string& name);
    void Remove(std::size_t position);
    void Clear();

    auto begin() const { return mCommands.begin(); }

    auto end() const { return mCommands.end(); }

private:
    friend class DockCommand;
    friend class DockHost;
    void Release(const Ref<DockCommand>& command);
    void SetHost(DockHost* host);

    DockHost* mHost;
    Collection<Ref<DockCommand>> mCommands{KeyComparison::IgnoringCase};
};

} // namespace paperkite
