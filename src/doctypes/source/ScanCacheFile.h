#pragma once

#include "doctypes/source/FileStamp.h"
#include "doctypes/source/SourceIndex.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// What is kept of one file between two scans.
struct CachedFile {
    std::string Path;
    FileStamp Stamp;
    std::uint64_t ContentHash = 0; ///< 0 when it is not known
    std::string Survey;            ///< of CodeSurvey; empty when the file is of no interest to it
    std::string LeftOut;           ///< the reason; empty when the file was read
    std::uint64_t Offset = 0;      ///< of its declarations, in their part of the cache
    std::uint64_t Size = 0;
    std::uint64_t DeclarationsHash = 0;
    std::uint32_t BadLineCount = 0;
};

/// What is kept of a scan, besides declarations and index.
struct CachedScan {
    std::string Place;       ///< what was scanned, and for whom
    std::string Reader;      ///< what it was read with: version and options of ctags
    std::int64_t Moment = 0; ///< when the scan began
    bool HeadersAreCpp = false;
    std::vector<std::string> Definitions;
    std::vector<std::string> Warnings;
    std::vector<CachedFile> Files;
};

/// A scan that was kept in a file. Nothing in there is trusted: what is damaged, cut off, of
/// another version or of another machine is as good as not there.
///
/// A reader keeps the file that it opened, also when a writer puts a new one in its place.
class ScanCacheReader {
public:
    /// Nothing when there is no such file, or none that can be used for the place.
    static std::unique_ptr<ScanCacheReader> Open(const std::string& path, std::string_view place);

    ~ScanCacheReader();
    ScanCacheReader(const ScanCacheReader&) = delete;
    ScanCacheReader& operator=(const ScanCacheReader&) = delete;

    const CachedScan& Scan() const { return mScan; }

    /// Nothing when they are damaged.
    std::optional<std::string> Declarations(const CachedFile& file) const;

    /// Nothing when it is damaged, or when it was told to stop.
    std::optional<SourceIndex> Index(const std::function<bool()>& keepGoing = {}) const;

    /// SourceIndexStorage::DigestOf of the index.
    std::uint64_t Digest() const;

private:
    friend class ScanCacheWriter;
    struct Header;

    explicit ScanCacheReader(int handle);
    bool ReadHeader();
    bool ReadScan();
    bool ReadAt(std::uint64_t offset, void* bytes, std::size_t size) const;

    int mHandle;
    std::unique_ptr<Header> mHeader;
    CachedScan mScan;
};

/// Keeps a scan in a file: declarations first, then the index, then the rest. Only the end of it
/// puts the file in its place, in one step; a writer that goes before that leaves no trace. Nothing
/// that fails here is told: a scan that cannot be kept is a scan all the same.
class ScanCacheWriter {
public:
    /// Makes the folder when it is not there.
    explicit ScanCacheWriter(std::string path);
    ~ScanCacheWriter();
    ScanCacheWriter(const ScanCacheWriter&) = delete;
    ScanCacheWriter& operator=(const ScanCacheWriter&) = delete;

    /// Sets where they stand in the file's record.
    void AddDeclarations(std::string_view declarations, CachedFile& file);
    /// Gives the digest of the index.
    std::uint64_t AddIndex(const SourceIndex& index);
    /// Takes declarations and index over from another scan, as they are.
    void CopyFrom(const ScanCacheReader& reader);
    void Commit(const CachedScan& scan);

private:
    void Write(const void* bytes, std::size_t size);
    void Flush();
    void Abandon();

    std::string mPath;
    std::string mTemporary;
    int mHandle = -1;
    std::uint64_t mOffset = 0;
    std::string mBuffer;
    std::unique_ptr<ScanCacheReader::Header> mHeader;
};

} // namespace paperkite
