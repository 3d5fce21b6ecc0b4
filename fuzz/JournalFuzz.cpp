#include "fuzz/FuzzTarget.h"
#include "fuzz/ScratchFolder.h"
#include "model/CommentJournal.h"
#include "model/JournalLine.h"
#include "model/SafeFile.h"

#include <algorithm>

namespace paperkite::fuzz {
namespace {

using Entries = std::vector<JournalEntry>;

std::vector<std::string> LinesOf(std::string_view input) {
    std::vector<std::string> lines;
    while (!input.empty()) {
        const std::size_t end = std::min(input.find('\n'), input.size());
        lines.emplace_back(input.substr(0, end));
        input.remove_prefix(std::min(end + 1, input.size()));
    }
    return lines;
}

/// The input, with a right checksum for every line that begins with "=": few come upon one.
std::string Journal(std::string_view input) {
    std::string bytes;
    for (const std::string& line : LinesOf(input)) {
        if (line.starts_with('='))
            bytes += JournalLine::ChecksumOf(std::string_view(line).substr(1)) + ' ' +
                     line.substr(1) + '\n';
        else
            bytes += line + '\n';
    }
    return bytes;
}

std::string Told(const Entries& entries) {
    std::string text;
    for (const JournalEntry& entry : entries)
        for (const std::string& part :
             {entry.Item, entry.Id, entry.Tag, entry.Qualifier, entry.XmlTag,
              entry.Text.value_or("(deleted)"), entry.Stored.value_or("(new)")})
            text += std::to_string(part.size()) + ":" + part + "\n";
    return text;
}

/// A line that says what this version of the program understands.
bool IsUnderstood(const std::string& line) {
    const auto element = JournalLine::Read(line);
    return element &&
           (element->Name == "journal" || element->Name == "unsaved" || element->Name == "settled");
}

/// Damaged lines take nothing else along.
void RequireTheWholeLines(const std::string& bytes, const CommentJournal::Contents& contents) {
    std::string whole;
    std::size_t damaged = 0;
    for (const std::string& line : LinesOf(bytes)) {
        if (line.empty()) continue;
        if (IsUnderstood(line))
            whole += line + '\n';
        else
            ++damaged;
    }
    Require(contents.DamagedLines == damaged, "damaged lines are counted otherwise");
    const auto again = CommentJournal::Read(whole);
    Require(again.DamagedLines == 0, "a whole line is damaged without the others");
    Require(again.Entries == contents.Entries, "damaged lines change what is whole:\n" +
                                                   Told(contents.Entries) + "---\n" +
                                                   Told(again.Entries));
}

/// What a program writes behind it is there, whatever stands before.
void RequireWhatIsWrittenBehind(const std::string& bytes, const Entries& entries) {
    XmlElement element = XmlElement::Named("unsaved");
    element.With("item", "behind").With("id", "behind").With("text", "<p>ünd</p>\r\n");
    const auto contents = CommentJournal::Read(bytes + "\n" + JournalLine::Write(element));
    const auto isBehind = [](const JournalEntry& entry) {
        return entry.Item == "behind" && entry.Id == "behind";
    };
    const auto found = std::find_if(contents.Entries.begin(), contents.Entries.end(), isBehind);
    Require(found != contents.Entries.end() && found->Text == "<p>ünd</p>\r\n",
            "a line behind damage is lost");
    const auto others = [&](Entries list) {
        std::erase_if(list, isBehind);
        return list;
    };
    Require(others(contents.Entries) == others(entries), "a line changes the ones before it");
}

/// Entries come back from a journal as they went into it.
void RequireAllBack(const Entries& entries) {
    CommentJournal journal(Scratch("journals"), "/project.kiteproject");
    const auto problem = journal.Write(entries);
    Require(!problem, "entries cannot be written: " + (problem ? problem->Message() : ""));
    if (entries.empty()) return;
    std::string bytes;
    Require(!SafeFile::Read(journal.GetPath(), bytes), "the journal cannot be read");
    const auto contents = CommentJournal::Read(bytes);
    journal.Remove();
    Require(contents.DamagedLines == 0, "what was written is damaged:\n" + bytes);
    Require(contents.Entries == entries, "an entry changed:\n" + Told(entries) + "---\n" +
                                             Told(contents.Entries) + "---\n" + bytes);
}

const FuzzTarget target("journal", [](std::string_view input) {
    const std::string bytes = Journal(input);
    const auto contents = CommentJournal::Read(bytes);
    RequireTheWholeLines(bytes, contents);
    RequireWhatIsWrittenBehind(bytes, contents.Entries);
    RequireAllBack(contents.Entries);
    CommentJournal::Read(std::string(input));
});

} // namespace
} // namespace paperkite::fuzz
