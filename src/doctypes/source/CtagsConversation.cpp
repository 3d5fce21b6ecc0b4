#include "doctypes/source/CtagsConversation.h"

#include "doctypes/source/CtagsProcess.h"

#include <algorithm>

namespace paperkite {

namespace {

// a tag is an object of JSON, so that no line of it begins so
constexpr std::string_view endOfFile = "#end of file";

} // namespace

CtagsConversation::CtagsConversation(const std::string& program, std::string folder,
                                     const std::vector<std::string>& options)
    : mFolder(std::move(folder)), mArguments({program}) {
    mArguments.insert(mArguments.end(), options.begin(), options.end());
    mArguments.emplace_back("--fields=-F"); // it is known which file is at hand
}

bool CtagsConversation::CanAsk(std::string_view name) {
    return !name.empty() && name.back() != ' ' &&
           std::none_of(name.begin(), name.end(),
                        [](unsigned char c) { return c < 0x20 || c == 0x7F; });
}

int CtagsConversation::Start() {
    std::vector<std::string> arguments = mArguments;
    arguments.emplace_back("--filter=yes");
    arguments.push_back("--filter-terminator=" + std::string(endOfFile) + "\n");
    return mChild.Start(arguments, mFolder);
}

int CtagsConversation::StartFor(const std::string& name) {
    mIsAlone = true;
    std::vector<std::string> arguments = mArguments;
    arguments.insert(arguments.end(), {"-f", "-", name});
    mChild.EndInput();
    return mChild.Start(arguments, mFolder);
}

void CtagsConversation::Ask(std::string_view name) {
    mChild.Write(name);
    mChild.Write("\n");
}

CtagsConversation::Event CtagsConversation::Wait(int milliseconds, const LineHandler& handler) {
    if (const Event event = TakeReceived(handler); event != Event::Nothing) {
        return event;
    }
    if (!mChild.IsOpen()) {
        return End();
    }
    mChild.Pump(milliseconds, [&](std::string_view piece) {
        mReceived.erase(0, mTaken);
        mTaken = 0;
        mReceived += piece;
        return true;
    });
    const Event event = TakeReceived(handler);
    return event == Event::Nothing && !mChild.IsOpen() ? End() : event;
}

CtagsConversation::Event CtagsConversation::TakeReceived(const LineHandler& handler) {
    for (;;) {
        const std::size_t end = mReceived.find('\n', mTaken);
        if (end == std::string::npos) {
            return Event::Nothing;
        }
        const std::string_view line = std::string_view(mReceived).substr(mTaken, end - mTaken);
        mTaken = end + 1;
        if (line == endOfFile) {
            return Event::FileDone;
        }
        handler(line);
    }
}

CtagsConversation::Event CtagsConversation::End() {
    if (!mHowItEnded.empty()) {
        return Event::Ended;
    }
    const int code = mChild.Finish(false);
    mHowItEnded = HowProgramEnded(code, mChild.ErrorText());
    return mIsAlone && code == 0 ? Event::FileDone : Event::Ended;
}

void CtagsConversation::Kill() {
    mChild.Finish(true);
    mHowItEnded = "was killed";
}

} // namespace paperkite
