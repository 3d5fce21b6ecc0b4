#pragma once

#include "model/FileProblem.h"
#include "model/JournalEntry.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace paperkite {

/// A file of unsaved comments that outlives the program that wrote it, one for each time that a
/// project is open. Lines are added at its end, each with a checksum of its own; a later line on a
/// comment replaces an earlier one.
///
///     CommentJournal journal(folder, "/home/me/zoo.kiteproject");
///     if (auto problem = journal.Write(entries)) Say(problem->Message());
///     …
///     journal.Remove(); // saved
///
/// The file is made by the first Write that has something to say. As long as the object lives it is
/// locked, so that nobody takes the work of a running program for left over.
class CommentJournal {
public:
    /// Who wrote a journal, and when it was begun.
    struct Header {
        std::string Project;
        std::string Host;
        std::string Process;
        std::string Begun;
    };

    /// What is whole in a journal.
    struct Contents {
        std::string Path;
        Header Writer;
        std::vector<JournalEntry> Entries;
        /// Lines that cannot be read.
        std::size_t DamagedLines = 0;
    };

    /// `folder` is made when it is needed; `project` is the whole path of the project file.
    CommentJournal(std::string folder, std::string project);
    ~CommentJournal();
    CommentJournal(const CommentJournal&) = delete;
    CommentJournal& operator=(const CommentJournal&) = delete;

    /// Makes these the unsaved comments: adds what is new or different, and that others are no
    /// longer unsaved, and flushes it to the disk. Does nothing when the journal says the same;
    /// without entries the file goes. After a problem the next call writes what is missing.
    std::optional<FileProblem> Write(const std::vector<JournalEntry>& entries);
    /// Everything was saved, or given up on purpose.
    void Remove();

    /// The file; empty while there is none.
    const std::string& GetPath() const { return mPath; }

    /// Whether there are journals of a project that no program is writing.
    static bool HasLeftOver(const std::string& folder, const std::string& project);
    /// Reads them, the oldest first. One that holds nothing is removed.
    static std::vector<Contents> FindLeftOver(const std::string& folder,
                                              const std::string& project);
    /// Takes a journal away that was dealt with. A damaged one stays under another name, with
    /// ".damaged" behind it, and is not offered again.
    static void Discard(const Contents& journal);
    /// Reads a journal's bytes.
    static Contents Read(const std::string& bytes);

private:
    using Key = std::pair<std::string, std::string>;

    int Begin();
    int Append(const std::string& lines);

    std::string mFolder;
    std::string mProject;
    std::string mPath;
    int mDescriptor = -1;
    /// What the file says.
    std::map<Key, JournalEntry> mWritten;
    std::size_t mSize = 0;
};

} // namespace paperkite
