#include "model/CommentJournal.h"

#include "foundation/KeyGenerator.h"
#include "foundation/Text.h"
#include "model/JournalLine.h"
#include "model/ProcessIdentity.h"
#include "model/ProjectPaths.h"
#include "model/SafeFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace paperkite {

namespace {

namespace fs = std::filesystem;

constexpr const char* kEnding = ".journal";
constexpr int kVersion = 1;
/// Beyond this much of what does not count any more, a journal is written anew.
constexpr std::size_t kMostWaste = 4 << 20;

/// What the journals of a project begin with.
std::string NameOf(const std::string& project) {
    return ProjectPaths::BaseName(project) + "-" + JournalLine::ChecksumOf(project) + "-";
}

XmlElement ElementOf(const JournalEntry& entry) {
    XmlElement element = XmlElement::Named("unsaved");
    element.With("item", entry.Item).With("id", entry.Id).With("tag", entry.Tag);
    if (!entry.Qualifier.empty()) element.With("qualifier", entry.Qualifier);
    if (!entry.XmlTag.empty()) element.With("xmltag", entry.XmlTag);
    if (entry.Text) element.With("text", *entry.Text);
    if (entry.Stored) element.With("stored", *entry.Stored);
    return element;
}

JournalEntry EntryOf(const XmlElement& element) {
    JournalEntry entry;
    entry.Item = element.AttributeText("item");
    entry.Id = element.AttributeText("id");
    entry.Tag = element.AttributeText("tag");
    entry.Qualifier = element.AttributeText("qualifier");
    entry.XmlTag = element.AttributeText("xmltag");
    if (element.FindAttribute("text")) entry.Text = element.AttributeText("text");
    if (element.FindAttribute("stored")) entry.Stored = element.AttributeText("stored");
    return entry;
}

XmlElement SettledElement(const std::string& item, const std::string& id) {
    XmlElement element = XmlElement::Named("settled");
    element.With("item", item).With("id", id);
    return element;
}

std::string HeaderLine(const std::string& project) {
    XmlElement header = XmlElement::Named("journal");
    header.With("version", std::to_string(kVersion))
        .With("project", project)
        .With("host", ProcessIdentity::Host())
        .With("process", ProcessIdentity::Process())
        .With("begun", ProcessIdentity::Now());
    return JournalLine::Write(header);
}

bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

FileProblem WriteProblem(const std::string& path, int error) {
    FileProblem problem;
    problem.Reason = FileProblem::ReasonCode::CannotWrite;
    problem.File = path;
    problem.What =
        std::string("Unsaved comments cannot be kept against a failure of the program: ") +
        std::strerror(error) + ".";
    problem.Remedy = "Save often, and make room in that folder or the permission to write there.";
    return problem;
}

/// Left-over journals of a project: a descriptor that holds the lock, and the path.
template <class Visit>
void ForEachLeftOver(const std::string& folder, const std::string& project, const Visit& visit) {
    const std::string beginning = NameOf(project);
    std::vector<std::string> paths;
    std::error_code failed;
    for (const auto& entry : fs::directory_iterator(folder, failed)) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with(beginning) && name.ends_with(kEnding))
            paths.push_back(entry.path().string());
    }
    std::sort(paths.begin(), paths.end());
    for (const std::string& path : paths) {
        const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        if (descriptor < 0) continue;
        const bool isLeftOver = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
        const bool goesOn = !isLeftOver || visit(path);
        ::close(descriptor);
        if (!goesOn) return;
    }
}

} // namespace

CommentJournal::CommentJournal(std::string folder, std::string project)
    : mFolder(std::move(folder)), mProject(std::move(project)) {}

CommentJournal::~CommentJournal() {
    if (mDescriptor >= 0) ::close(mDescriptor);
}

int CommentJournal::Begin() {
    std::error_code failed;
    fs::create_directories(mFolder, failed);
    const std::string time = ReplaceAll(ReplaceAll(ProcessIdentity::Now(), ":", ""), " ", "-");
    const std::string path = mFolder + "/" + NameOf(mProject) + time + "-" +
                             KeyGenerator().Generate().substr(0, 8) + kEnding;
    // What an author writes is nobody else's business.
    const int descriptor =
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0600);
    if (descriptor < 0) return errno;
    ::flock(descriptor, LOCK_EX | LOCK_NB);
    mDescriptor = descriptor;
    mPath = path;
    mSize = 0;
    const int error = Append(HeaderLine(mProject));
    if (error != 0) Remove();
    return error;
}

int CommentJournal::Append(const std::string& lines) {
    if (WriteAll(mDescriptor, lines) && ::fdatasync(mDescriptor) == 0) {
        mSize += lines.size();
        return 0;
    }
    const int error = errno;
    // A line that was cut off must not swallow the next one; on a full disk this takes no room.
    static_cast<void>(!::ftruncate(mDescriptor, static_cast<off_t>(mSize)));
    return error;
}

std::optional<FileProblem> CommentJournal::Write(const std::vector<JournalEntry>& entries) {
    std::map<Key, JournalEntry> wanted;
    for (const JournalEntry& entry : entries)
        wanted.emplace(Key(entry.Item, entry.Id), entry);
    // Behind a problem there may be a file although nothing of it counts.
    if (wanted.empty()) {
        Remove();
        return {};
    }
    if (wanted == mWritten) return {};
    std::string whole;
    std::string lines;
    for (const auto& [key, entry] : wanted) {
        const std::string line = JournalLine::Write(ElementOf(entry));
        whole += line;
        const auto written = mWritten.find(key);
        if (written == mWritten.end() || written->second != entry) lines += line;
    }
    for (const auto& [key, entry] : mWritten)
        if (!wanted.contains(key))
            lines += JournalLine::Write(SettledElement(key.first, key.second));

    const bool isWasteful = mSize > whole.size() + kMostWaste;
    const std::string oldPath = mPath;
    const int oldDescriptor = mDescriptor;
    int error = 0;
    if (mDescriptor < 0 || isWasteful || mWritten.empty()) {
        mDescriptor = -1;
        error = Begin();
        lines = whole;
    }
    if (error == 0) error = Append(lines);
    if (error == 0) {
        mWritten = std::move(wanted);
        if (oldDescriptor >= 0 && oldDescriptor != mDescriptor) {
            ::unlink(oldPath.c_str());
            ::close(oldDescriptor);
        }
        return {};
    }
    // What is in the old file stays, and what is not in it is written when there is room.
    const FileProblem problem = WriteProblem(mPath.empty() ? mFolder : mPath, error);
    if (oldDescriptor >= 0 && oldDescriptor != mDescriptor) {
        if (mDescriptor >= 0) Remove();
        mDescriptor = oldDescriptor;
        mPath = oldPath;
    }
    if (mDescriptor < 0) mWritten.clear();
    return problem;
}

void CommentJournal::Remove() {
    mWritten.clear();
    if (mDescriptor < 0) return;
    ::unlink(mPath.c_str());
    ::close(mDescriptor);
    mDescriptor = -1;
    mPath.clear();
    mSize = 0;
}

bool CommentJournal::HasLeftOver(const std::string& folder, const std::string& project) {
    bool found = false;
    ForEachLeftOver(folder, project, [&found](const std::string& path) {
        std::string bytes;
        if (SafeFile::Read(path, bytes)) return true;
        const Contents contents = Read(bytes);
        found = !contents.Entries.empty() || contents.DamagedLines > 0;
        return !found;
    });
    return found;
}

std::vector<CommentJournal::Contents> CommentJournal::FindLeftOver(const std::string& folder,
                                                                   const std::string& project) {
    std::vector<Contents> result;
    ForEachLeftOver(folder, project, [&](const std::string& path) {
        std::string bytes;
        if (SafeFile::Read(path, bytes)) return true;
        Contents contents = Read(bytes);
        contents.Path = path;
        if (contents.Entries.empty() && contents.DamagedLines == 0)
            ::unlink(path.c_str());
        else
            result.push_back(std::move(contents));
        return true;
    });
    return result;
}

void CommentJournal::Discard(const Contents& journal) {
    // Somebody may still be able to read what this program cannot.
    if (journal.DamagedLines > 0)
        ::rename(journal.Path.c_str(), (journal.Path + ".damaged").c_str());
    else
        ::unlink(journal.Path.c_str());
}

CommentJournal::Contents CommentJournal::Read(const std::string& bytes) {
    Contents contents;
    std::map<Key, JournalEntry> unsaved;
    for (const std::string& line : Split(bytes, "\n")) {
        if (line.empty()) continue;
        const auto element = JournalLine::Read(line);
        if (!element) {
            ++contents.DamagedLines;
        } else if (element->Name == "journal") {
            contents.Writer = {element->AttributeText("project"), element->AttributeText("host"),
                               element->AttributeText("process"), element->AttributeText("begun")};
        } else if (element->Name == "unsaved") {
            JournalEntry entry = EntryOf(*element);
            const Key key(entry.Item, entry.Id);
            unsaved[key] = std::move(entry);
        } else if (element->Name == "settled") {
            unsaved.erase(Key(element->AttributeText("item"), element->AttributeText("id")));
        } else {
            // A newer program may have meant a comment by it.
            ++contents.DamagedLines;
        }
    }
    for (auto& [key, entry] : unsaved)
        contents.Entries.push_back(std::move(entry));
    return contents;
}

} // namespace paperkite
