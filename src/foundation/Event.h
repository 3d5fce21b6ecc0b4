#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace paperkite {

/// One handler's tie to an event; it is cut when this object goes, or by Disconnect.
class [[nodiscard]] Connection {
public:
    Connection() = default;
    explicit Connection(std::shared_ptr<bool> alive) : mAlive(std::move(alive)) {}
    Connection(Connection&&) noexcept = default;

    Connection& operator=(Connection&& other) noexcept {
        if (this != &other) {
            Disconnect();
            mAlive = std::move(other.mAlive);
        }
        return *this;
    }

    ~Connection() { Disconnect(); }

    void Disconnect() {
        if (mAlive) *mAlive = false;
        mAlive.reset();
    }

    bool IsConnected() const { return mAlive && *mAlive; }

private:
    std::shared_ptr<bool> mAlive;
};

/// A synchronous event. Arguments that are C++ references let a handler answer the one who raises.
///
///     Event<const std::string&, bool&> HyperlinkClick;
///     Connection tie = HyperlinkClick.Connect([](const std::string& hRef, bool& cancel) { … });
///
/// Handlers run in the order in which they were connected. Connecting and disconnecting while the
/// event is being raised is safe: a handler that is cut is not called any more, one that comes is
/// called from the next time on. The event itself may end inside one of its handlers.
template <class... Arguments>
class Event {
public:
    using Handler = std::function<void(Arguments...)>;
    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    Connection Connect(Handler handler) {
        auto alive = std::make_shared<bool>(true);
        mState->Entries.push_back(std::make_shared<Entry>(Entry{alive, std::move(handler)}));
        return Connection(alive);
    }

    /// Calls every handler; what a handler throws ends the round and reaches the caller.
    void Raise(Arguments... arguments) const {
        if (mState->Entries.empty()) return;
        const auto state = mState;
        RaiseGuard guard(*state);
        const std::size_t count = state->Entries.size();
        for (std::size_t index = 0; index < count; ++index) {
            const auto entry = state->Entries[index];
            if (*entry->Alive) entry->Call(arguments...);
        }
    }

    bool HasHandlers() const {
        return std::any_of(mState->Entries.begin(), mState->Entries.end(),
                           [](const auto& entry) { return *entry->Alive; });
    }

private:
    struct Entry {
        std::shared_ptr<bool> Alive;
        Handler Call;
    };

    struct State {
        std::vector<std::shared_ptr<Entry>> Entries;
        int Depth = 0;
    };

    // Cut entries are swept out only when no round is under way, so that positions stay put.
    struct RaiseGuard {
        explicit RaiseGuard(State& state) : Guarded(state) { ++Guarded.Depth; }

        ~RaiseGuard() {
            if (--Guarded.Depth > 0) return;
            std::erase_if(Guarded.Entries, [](const auto& entry) { return !*entry->Alive; });
        }

        State& Guarded;
    };

    std::shared_ptr<State> mState = std::make_shared<State>();
};

} // namespace paperkite
