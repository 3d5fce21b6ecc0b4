#include "doctypes/source/NameSearch.h"

#include "foundation/Text.h"

#include <algorithm>
#include <cstring>

namespace paperkite {

namespace {

void MakeSmall(char* from, const char* to) {
    for (; from != to; ++from)
        *from = static_cast<char>(*from + (*from >= 'A' && *from <= 'Z' ? 'a' - 'A' : 0));
}

} // namespace

/// What was found so far, and what is still worth looking for: once there are enough of a better
/// rank, the worse ones are passed over by the scan itself.
class NameSearch::Finding {
public:
    Finding(std::string wanted, std::size_t most) : mMost(most), mNeedle(std::move(wanted)) {
        mLength = mNeedle.size();
        if (mNeedle.empty()) OnlyBeginnings();
    }

    bool IsDone() const { return mWhole.size() >= mMost; }
    const std::string& Needle() const { return mNeedle; }
    /// Where the text itself begins in the needle.
    std::size_t Lead() const { return mOnlyBeginnings ? 1 : 0; }

    void Add(std::size_t entry, std::size_t before, std::size_t length) {
        auto& rank = before > 0 ? mInside : length > mLength ? mBeginnings : mWhole;
        if (rank.size() < mMost) rank.push_back(entry);
        const std::size_t better = mWhole.size() + mBeginnings.size();
        if (better + mInside.size() >= mMost) OnlyBeginnings();
        if (better >= mMost) OnlyWhole();
    }

    std::vector<std::size_t> Take() const {
        std::vector<std::size_t> all = mWhole;
        all.insert(all.end(), mBeginnings.begin(), mBeginnings.end());
        all.insert(all.end(), mInside.begin(), mInside.end());
        all.resize(std::min(all.size(), mMost));
        return all;
    }

private:
    void OnlyBeginnings() {
        if (!mOnlyBeginnings) mNeedle.insert(mNeedle.begin(), '\0');
        mOnlyBeginnings = true;
    }
    void OnlyWhole() {
        if (!mOnlyWhole) mNeedle.push_back('\0');
        mOnlyWhole = true;
    }

    std::size_t mMost;
    std::string mNeedle;
    std::size_t mLength = 0;
    bool mOnlyBeginnings = false;
    bool mOnlyWhole = false;
    std::vector<std::size_t> mWhole, mBeginnings, mInside;
};

void NameSearch::Add(const SourceIndex& index) {
    mRoots.push_back(mStarts.size());
    std::size_t bytes = mNames.size();
    for (SourceIndex::Id entity = 0; entity < index.Size(); ++entity)
        bytes += index.Name(entity).size() + 1;
    mNames.reserve(bytes);
    mStarts.reserve(mStarts.size() + index.Size());
    const std::size_t first = mNames.size();
    for (SourceIndex::Id entity = 0; entity < index.Size(); ++entity) {
        mStarts.push_back(static_cast<std::uint32_t>(mNames.size()));
        mNames.append(index.Name(entity)).push_back('\0');
    }
    MakeSmall(mNames.data() + first, mNames.data() + mNames.size());
}

std::vector<NameSearch::Place> NameSearch::Find(std::string_view text, std::size_t most,
                                                const Filter& filter) const {
    // No name holds what stands between the names.
    if (most == 0 || text.find('\0') != std::string_view::npos) return {};
    Finding finding(LowerCase(text), most);
    const char* const end = mNames.data() + mNames.size();
    std::size_t entry = 0;
    for (const char* from = mNames.data(); !finding.IsDone();) {
        const std::string& needle = finding.Needle();
        const void* hit =
            memmem(from, static_cast<std::size_t>(end - from), needle.data(), needle.size());
        if (!hit) break;
        const std::size_t at =
            static_cast<std::size_t>(static_cast<const char*>(hit) - mNames.data()) +
            finding.Lead();
        if (at >= mNames.size()) break;
        entry = EntryAt(at, entry);
        const std::size_t behind = EndOf(entry);
        if (!filter || filter(PlaceOf(entry)))
            finding.Add(entry, at - mStarts[entry], behind - mStarts[entry]);
        from = mNames.data() + behind;
    }
    std::vector<Place> places;
    for (const std::size_t taken : finding.Take())
        places.push_back(PlaceOf(taken));
    return places;
}

bool NameSearch::Holds(std::string_view text) const {
    const std::string needle = LowerCase(text);
    return needle.find('\0') == std::string::npos &&
           memmem(mNames.data(), mNames.size(), needle.data(), needle.size()) != nullptr;
}

std::size_t NameSearch::EntryAt(std::size_t offset, std::size_t first) const {
    // Hits mostly stand close to each other.
    std::size_t step = 1;
    while (first + step < mStarts.size() && mStarts[first + step] <= offset)
        step *= 2;
    const auto from = mStarts.begin() + static_cast<std::ptrdiff_t>(first + step / 2);
    const auto to =
        mStarts.begin() + static_cast<std::ptrdiff_t>(std::min(first + step, mStarts.size()));
    return static_cast<std::size_t>(std::upper_bound(from, to, offset) - mStarts.begin()) - 1;
}

std::size_t NameSearch::EndOf(std::size_t entry) const {
    return (entry + 1 < mStarts.size() ? mStarts[entry + 1] : mNames.size()) - 1;
}

NameSearch::Place NameSearch::PlaceOf(std::size_t entry) const {
    const auto root = std::upper_bound(mRoots.begin(), mRoots.end(), entry) - 1;
    return {static_cast<std::size_t>(root - mRoots.begin()),
            static_cast<SourceIndex::Id>(entry - *root)};
}

std::size_t NameSearch::Bytes() const {
    return mNames.capacity() + mStarts.capacity() * sizeof(mStarts[0]);
}

} // namespace paperkite
