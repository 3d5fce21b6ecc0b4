#pragma once

#include "doctypes/source/ChildProcess.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// Universal Ctags as a process that is told one file after the other and answers each with its
/// tags and a mark behind them. So it is always known which file it works at, and it costs its
/// start only once. Used by one thread; its end kills the process.
///
///     CtagsConversation talk("ctags", folder, options);
///     talk.Ask("./a.c");
///     while (talk.Wait(50, takeLine) == CtagsConversation::Event::Nothing) {}
class CtagsConversation {
public:
    /// What came of a wait: nothing yet, the oldest open file is answered, or the process is gone.
    enum class Event { Nothing, FileDone, Ended };

    /// Gets a line of the oldest open file, without its line end.
    using LineHandler = std::function<void(std::string_view line)>;

    CtagsConversation(const std::string& program, std::string folder,
                      const std::vector<std::string>& options);

    /// Whether the name can be told in a line of the standard input. Others need a process of their
    /// own, see AskAlone.
    static bool CanAsk(std::string_view name);

    /// An errno value when the program cannot be started.
    int Start();

    /// Starts the program for one file of any name, which is its only one.
    int StartFor(const std::string& name);

    void Ask(std::string_view name);

    /// Waits that long at most. Gives one event at a time.
    Event Wait(int milliseconds, const LineHandler& handler);

    /// Kills the process; it counts as ended.
    void Kill();

    /// How the process ended, for a message: "was ended by signal 11".
    const std::string& HowItEnded() const { return mHowItEnded; }

private:
    Event TakeReceived(const LineHandler& handler);
    Event End();

    std::string mFolder;
    std::vector<std::string> mArguments;
    ChildProcess mChild;
    std::string mReceived;
    std::size_t mTaken = 0; ///< bytes of mReceived that were handed on
    bool mIsAlone = false;
    std::string mHowItEnded;
};

} // namespace paperkite
