#include "doctypes/source/ScanCacheFile.h"

#include "doctypes/source/ByteReader.h"
#include "doctypes/source/ByteWriter.h"
#include "doctypes/source/ContentHash.h"
#include "doctypes/source/SourceIndexStorage.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace paperkite {

namespace {

constexpr std::array<char, 8> magic = {'K', 'I', 'T', 'E', 'S', 'C', 'A', 'N'};
constexpr std::uint32_t formatVersion = 1;
constexpr std::uint32_t byteOrder = 0x01020304;
constexpr std::size_t bufferSize = 256 * 1024;

struct Part {
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    std::uint64_t hash = 0;
};

void Encode(ByteWriter& writer, const CachedFile& file) {
    writer.Text(file.Path);
    for (const std::uint64_t number :
         {file.Stamp.Size, static_cast<std::uint64_t>(file.Stamp.Modified),
          static_cast<std::uint64_t>(file.Stamp.Changed), file.Stamp.Number, file.ContentHash,
          file.Offset, file.Size, file.DeclarationsHash}) {
        writer.Number(number);
    }
    writer.Number(file.BadLineCount);
    writer.Text(file.Survey);
    writer.Text(file.LeftOut);
}

CachedFile DecodeFile(ByteReader& reader) {
    CachedFile file;
    file.Path = reader.Text();
    file.Stamp.Size = reader.Number();
    file.Stamp.Modified = static_cast<std::int64_t>(reader.Number());
    file.Stamp.Changed = static_cast<std::int64_t>(reader.Number());
    file.Stamp.Number = reader.Number();
    file.ContentHash = reader.Number();
    file.Offset = reader.Number();
    file.Size = reader.Number();
    file.DeclarationsHash = reader.Number();
    file.BadLineCount = static_cast<std::uint32_t>(reader.NumberUpTo(0xFFFFFFFF));
    file.Survey = reader.Text();
    file.LeftOut = reader.Text();
    return file;
}

void Encode(ByteWriter& writer, const std::vector<std::string>& texts) {
    writer.Number(texts.size());
    for (const std::string& text : texts) {
        writer.Text(text);
    }
}

std::vector<std::string> DecodeTexts(ByteReader& reader) {
    std::vector<std::string> texts;
    for (std::uint64_t left = reader.Number(); left > 0 && reader.IsGood(); --left) {
        texts.emplace_back(reader.Text());
    }
    return texts;
}

std::string Encoded(const CachedScan& scan) {
    ByteWriter writer;
    writer.Text(scan.Place);
    writer.Text(scan.Reader);
    writer.Number(static_cast<std::uint64_t>(scan.Moment));
    writer.Number(scan.HeadersAreCpp);
    Encode(writer, scan.Definitions);
    Encode(writer, scan.Warnings);
    writer.Number(scan.Files.size());
    for (const CachedFile& file : scan.Files) {
        Encode(writer, file);
    }
    return writer.Take();
}

bool Decode(std::string_view bytes, CachedScan& scan) {
    ByteReader reader(bytes);
    scan.Place = reader.Text();
    scan.Reader = reader.Text();
    scan.Moment = static_cast<std::int64_t>(reader.Number());
    scan.HeadersAreCpp = reader.NumberUpTo(1) == 1;
    scan.Definitions = DecodeTexts(reader);
    scan.Warnings = DecodeTexts(reader);
    for (std::uint64_t left = reader.Number(); left > 0 && reader.IsGood(); --left) {
        scan.Files.push_back(DecodeFile(reader));
    }
    return reader.IsGood() && reader.IsAtEnd();
}

} // namespace

struct ScanCacheReader::Header {
    std::array<char, 8> mark = magic;
    std::uint32_t version = formatVersion;
    std::uint32_t order = byteOrder;
    Part declarations, index, scan;
    std::uint64_t hash = 0; ///< of all before

    std::uint64_t OwnHash() const {
        return ContentHash::Of({reinterpret_cast<const char*>(this), offsetof(Header, hash)});
    }
};

ScanCacheReader::ScanCacheReader(int handle)
    : mHandle(handle), mHeader(std::make_unique<Header>()) {}

ScanCacheReader::~ScanCacheReader() {
    ::close(mHandle);
}

std::unique_ptr<ScanCacheReader> ScanCacheReader::Open(const std::string& path,
                                                       std::string_view place) {
    const int handle = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (handle < 0) {
        return nullptr;
    }
    std::unique_ptr<ScanCacheReader> reader(new ScanCacheReader(handle));
    if (!reader->ReadHeader() || !reader->ReadScan() || reader->mScan.Place != place) {
        return nullptr;
    }
    // the age of a cache is that of its last use
    ::futimens(handle, nullptr);
    return reader;
}

bool ScanCacheReader::ReadHeader() {
    struct stat status = {};
    if (::fstat(mHandle, &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_uid != ::geteuid() || !ReadAt(0, mHeader.get(), sizeof(Header))) {
        return false;
    }
    const auto fileSize = static_cast<std::uint64_t>(status.st_size);
    const auto isInside = [&](const Part& part) {
        return part.size <= fileSize && part.offset <= fileSize - part.size;
    };
    return mHeader->mark == magic && mHeader->version == formatVersion &&
           mHeader->order == byteOrder && mHeader->hash == mHeader->OwnHash() &&
           isInside(mHeader->declarations) && isInside(mHeader->index) && isInside(mHeader->scan);
}

bool ScanCacheReader::ReadAt(std::uint64_t offset, void* bytes, std::size_t size) const {
    char* at = static_cast<char*>(bytes);
    while (size > 0) {
        const ssize_t count = ::pread(mHandle, at, size, static_cast<off_t>(offset));
        if (count == 0 || (count < 0 && errno != EINTR)) {
            return false;
        }
        if (count > 0) {
            at += count;
            offset += static_cast<std::uint64_t>(count);
            size -= static_cast<std::size_t>(count);
        }
    }
    return true;
}

bool ScanCacheReader::ReadScan() {
    std::string bytes(mHeader->scan.size, '\0');
    if (!ReadAt(mHeader->scan.offset, bytes.data(), bytes.size()) ||
        ContentHash::Of(bytes) != mHeader->scan.hash || !Decode(bytes, mScan)) {
        return false;
    }
    const std::uint64_t limit = mHeader->declarations.size;
    return std::all_of(mScan.Files.begin(), mScan.Files.end(), [&](const CachedFile& file) {
        return file.Size <= limit && file.Offset <= limit - file.Size;
    });
}

std::optional<std::string> ScanCacheReader::Declarations(const CachedFile& file) const {
    std::string bytes(file.Size, '\0');
    if (!ReadAt(mHeader->declarations.offset + file.Offset, bytes.data(), bytes.size()) ||
        ContentHash::Of(bytes) != file.DeclarationsHash) {
        return std::nullopt;
    }
    return bytes;
}

std::optional<SourceIndex> ScanCacheReader::Index(const std::function<bool()>& keepGoing) const {
    const Part& part = mHeader->index;
    std::uint64_t at = 0;
    ContentHash hash;
    auto index = SourceIndexStorage::Load(part.size, [&](void* bytes, std::size_t size) {
        if ((keepGoing && !keepGoing()) || size > part.size - at ||
            !ReadAt(part.offset + at, bytes, size)) {
            return false;
        }
        at += size;
        hash.Add({static_cast<const char*>(bytes), size});
        return true;
    });
    return hash.Value() == part.hash ? std::move(index) : std::nullopt;
}

std::uint64_t ScanCacheReader::Digest() const {
    return mHeader->index.hash;
}

ScanCacheWriter::ScanCacheWriter(std::string path)
    : mPath(std::move(path)), mHeader(std::make_unique<ScanCacheReader::Header>()) {
    const std::filesystem::path folder = std::filesystem::path(mPath).parent_path();
    std::error_code ignored;
    if (std::filesystem::create_directories(folder, ignored)) {
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, ignored);
    }
    mTemporary = mPath + ".XXXXXX";
    mHandle = ::mkostemp(mTemporary.data(), O_CLOEXEC);
    mOffset = sizeof(ScanCacheReader::Header);
    mHeader->declarations.offset = mOffset;
    if (mHandle >= 0 && ::lseek(mHandle, static_cast<off_t>(mOffset), SEEK_SET) < 0) {
        Abandon();
    }
}

ScanCacheWriter::~ScanCacheWriter() {
    Abandon();
}

void ScanCacheWriter::Abandon() {
    if (mHandle >= 0) {
        ::close(mHandle);
        ::unlink(mTemporary.c_str());
        mHandle = -1;
    }
}

void ScanCacheWriter::Flush() {
    std::string_view rest = mBuffer;
    while (mHandle >= 0 && !rest.empty()) {
        const ssize_t count = ::write(mHandle, rest.data(), rest.size());
        if (count >= 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EINTR) {
            Abandon();
        }
    }
    mBuffer.clear();
}

void ScanCacheWriter::Write(const void* bytes, std::size_t size) {
    mOffset += size;
    if (mHandle < 0 || size == 0) {
        return;
    }
    mBuffer.append(static_cast<const char*>(bytes), size);
    if (mBuffer.size() >= bufferSize) {
        Flush();
    }
}

void ScanCacheWriter::AddDeclarations(std::string_view declarations, CachedFile& file) {
    file.Offset = mOffset - mHeader->declarations.offset;
    file.Size = declarations.size();
    file.DeclarationsHash = ContentHash::Of(declarations);
    Write(declarations.data(), declarations.size());
    mHeader->declarations.size += declarations.size();
}

std::uint64_t ScanCacheWriter::AddIndex(const SourceIndex& index) {
    mHeader->index.offset = mOffset;
    ContentHash hash;
    SourceIndexStorage::Store(index, [&](const void* bytes, std::size_t size) {
        hash.Add({static_cast<const char*>(bytes), size});
        Write(bytes, size);
    });
    mHeader->index.size = mOffset - mHeader->index.offset;
    mHeader->index.hash = hash.Value();
    return hash.Value();
}

void ScanCacheWriter::CopyFrom(const ScanCacheReader& reader) {
    std::string piece;
    const auto copy = [&](const Part& from, Part& to) {
        to = {mOffset, from.size, from.hash};
        for (std::uint64_t done = 0; done < from.size && mHandle >= 0; done += piece.size()) {
            piece.resize(std::min<std::uint64_t>(bufferSize, from.size - done));
            if (!reader.ReadAt(from.offset + done, piece.data(), piece.size())) {
                Abandon();
            }
            Write(piece.data(), piece.size());
        }
    };
    copy(reader.mHeader->declarations, mHeader->declarations);
    copy(reader.mHeader->index, mHeader->index);
}

void ScanCacheWriter::Commit(const CachedScan& scan) {
    const std::string bytes = Encoded(scan);
    mHeader->scan = {mOffset, bytes.size(), ContentHash::Of(bytes)};
    Write(bytes.data(), bytes.size());
    Flush();
    mHeader->hash = mHeader->OwnHash();
    constexpr auto size = static_cast<ssize_t>(sizeof(ScanCacheReader::Header));
    if (mHandle < 0 || ::pwrite(mHandle, mHeader.get(), sizeof(*mHeader), 0) != size ||
        ::rename(mTemporary.c_str(), mPath.c_str()) != 0) {
        Abandon();
        return;
    }
    ::close(mHandle);
    mHandle = -1;
}

} // namespace paperkite
