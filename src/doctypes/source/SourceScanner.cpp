#include "doctypes/source/SourceScanner.h"

#include "doctypes/source/CodeSurvey.h"
#include "doctypes/source/CtagsOptions.h"
#include "doctypes/source/CtagsProcess.h"
#include "doctypes/source/CtagsTagReader.h"
#include "doctypes/source/LanguageRefiner.h"
#include "doctypes/source/SourceFileFinder.h"
#include "doctypes/source/SourceIndexBuilder.h"

#include <algorithm>
#include <unordered_map>

namespace paperkite {

namespace {

/// One scan on its way.
class Scan {
public:
    Scan(std::string folder, std::string_view projectName, const SourceScanner::Progress& progress)
        : mFolder(std::move(folder)), mProgress(progress), mBuilder(projectName) {}

    ScanResult Run(const std::vector<std::string>& exclusions, const std::string& program) {
        mResult.Outcome = Steps(exclusions, program);
        if (mResult.Outcome.IsDone()) {
            Report(ScanPhase::BuildingIndex, mFiles.size(), "");
            mResult.Index = mBuilder.Finish();
        }
        mResult.FileCount = mFiles.size();
        return std::move(mResult);
    }

private:
    ScanOutcome Steps(const std::vector<std::string>& exclusions, const std::string& program) {
        if (ScanOutcome outcome = FindFiles(exclusions); !outcome.IsDone()) {
            return outcome;
        }
        CtagsProcess ctags;
        ctags.SetProgram(program);
        if (ScanOutcome outcome = ctags.Check(); !outcome.IsDone()) {
            return outcome;
        }
        if (!Survey()) {
            return Cancelled();
        }
        return ReadTags(ctags);
    }

    static ScanOutcome Cancelled() {
        return ScanOutcome::Cancellation("The scan of the source code was cancelled.");
    }

    bool Report(ScanPhase phase, std::size_t done, std::string_view file) {
        const std::size_t total = phase == ScanPhase::FindingFiles ? 0 : mFiles.size();
        return !mProgress || mProgress({phase, done, total, file});
    }

    ScanOutcome FindFiles(const std::vector<std::string>& exclusions) {
        SourceFileFinder finder(mFolder);
        for (const std::string& pattern : exclusions) {
            finder.Exclude(pattern);
        }
        finder.SetFilter(IsSourceFileName);
        FoundFiles found = finder.Find(
            [&](std::size_t count) { return Report(ScanPhase::FindingFiles, count, ""); });
        mFiles = std::move(found.Files);
        mResult.Warnings = std::move(found.Warnings);
        if (!found.Outcome.IsDone()) {
            return found.Outcome;
        }
        for (const std::string& file : mFiles) {
            mFileNumbers.emplace(file, mBuilder.AddFile(file));
        }
        return Report(ScanPhase::FindingFiles, mFiles.size(), "") ? ScanOutcome() : Cancelled();
    }

    bool Survey() {
        for (std::size_t i = 0; i < mFiles.size(); ++i) {
            if (i % 64 == 0 && !Report(ScanPhase::SurveyingFiles, i, mFiles[i])) {
                return false;
            }
            if (CodeSurvey::IsOfInterest(mFiles[i])) {
                if (const auto text = SourceText::Read(mFolder + "/" + mFiles[i])) {
                    mSurvey.Look(mFiles[i], text->Text());
                }
            }
        }
        return true;
    }

    ScanOutcome ReadTags(CtagsProcess& ctags) {
        bool goesOn = Report(ScanPhase::ReadingFiles, 0, "");
        ctags.SetKeepGoing(
            [&] { return goesOn = goesOn && Report(ScanPhase::ReadingFiles, mDone, mFile.Path); });
        std::vector<std::string> names;
        for (const std::string& file : mFiles) {
            names.push_back("./" + file);
        }
        ScanOutcome outcome = goesOn ? ctags.Run(mFolder, CtagsOptions(mSurvey), names,
                                                 [&](std::string_view line) {
                                                     return goesOn = TakeLine(line) && goesOn;
                                                 })
                                     : Cancelled();
        if (outcome.Status == ScanStatus::Cancelled) {
            return Cancelled();
        }
        if (!outcome.IsDone()) {
            return outcome;
        }
        TakeComplaints(ctags.ErrorText());
        return FinishFile() ? ScanOutcome() : Cancelled();
    }

    bool TakeLine(std::string_view line) {
        CtagsTag tag;
        const auto read = mReader.Read(line, tag);
        mResult.BadLineCount += read == CtagsTagReader::Result::Bad;
        if (read != CtagsTagReader::Result::Tag) {
            return true;
        }
        const bool isSameFile = tag.Path == mFile.Path;
        if (!isSameFile && !FinishFile()) {
            return false;
        }
        mFile.Path = tag.Path;
        mFile.Tags.push_back(std::move(tag));
        return true;
    }

    bool FinishFile() {
        const auto number = mFileNumbers.find(mFile.Path);
        if (number == mFileNumbers.end()) {
            mFile = {};
            return true;
        }
        mDone = number->second + 1;
        const auto text = SourceText::Read(mFolder + "/" + mFile.Path);
        const std::string& language = LanguageNameOfFile();
        const LanguageRefiner& refiner = LanguageRefiner::For(LanguageOfName(language));
        for (SourceDeclaration& declaration :
             refiner.Refine(mFile, text ? *text : SourceText(std::string()))) {
            declaration.File = number->second;
            mBuilder.Add(declaration);
        }
        const bool goesOn = Report(ScanPhase::ReadingFiles, mDone, mFile.Path);
        mFile = {};
        return goesOn;
    }

    // what moc adds to a C++ file may come first
    const std::string& LanguageNameOfFile() const {
        static const std::string cpp = "C++";
        return mFile.Tags[0].Language == "QtMoc" ? cpp : mFile.Tags[0].Language;
    }

    void TakeComplaints(const std::string& text) {
        std::string_view rest = text;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find('\n'), rest.size());
            const std::string_view line = rest.substr(0, end);
            if (line.find("cannot open") != std::string_view::npos) {
                mResult.Warnings.emplace_back(line);
            }
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }

    std::string mFolder;
    const SourceScanner::Progress& mProgress;
    SourceIndexBuilder mBuilder;
    ScanResult mResult;
    std::vector<std::string> mFiles;
    std::unordered_map<std::string, std::uint32_t> mFileNumbers;
    CodeSurvey mSurvey;
    CtagsTagReader mReader;
    TaggedFile mFile;
    std::size_t mDone = 0;
};

} // namespace

SourceScanner::SourceScanner(std::string folder, std::string projectName)
    : mFolder(std::move(folder)), mProjectName(std::move(projectName)) {}

ScanResult SourceScanner::Scan(const Progress& progress) const {
    return paperkite::Scan(mFolder, mProjectName, progress).Run(mExclusions, mProgram);
}

} // namespace paperkite
