#pragma once

#include "foundation/Error.h"
#include "foundation/Event.h"

#include <string>
#include <utility>
#include <vector>

namespace paperkite {

/// Writes down what is raised, as one string that a test compares.
class EventLog {
public:
    void Add(const std::string& line) { mText += mText.empty() ? line : " " + line; }

    void Keep(Connection connection) { mConnections.push_back(std::move(connection)); }

    /// What was written since the last call.
    std::string Take() { return std::exchange(mText, {}); }

private:
    std::string mText;
    std::vector<Connection> mConnections;
};

template <class Action>
int ErrorNumberOf(Action&& action) {
    try {
        action();
    } catch (const Error& error) {
        return error.GetNumber();
    }
    return 0;
}

} // namespace paperkite
