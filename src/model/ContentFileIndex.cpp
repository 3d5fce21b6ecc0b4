#include "model/ContentFileIndex.h"

#include "model/StoredText.h"
#include "model/XmlReader.h"
#include "model/XmlWriter.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace paperkite {

namespace {

constexpr std::string_view kHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contentfile version=\"1\">";
constexpr std::string_view kTail = "\n</contentfile>\n";
constexpr std::string_view kProperty = "\n  <property name=\"RelatedProject\">";
constexpr std::string_view kPropertyEnd = "</property>";
constexpr std::string_view kComment = "\n  <comment item=\"";
constexpr std::string_view kCDataEnd = "]]>";
// What stands between two items' comments more often than not fits; longer names grow it.
constexpr std::size_t kUsualName = 128;
// An item with more comments is not worth a quicker way of finding twins.
constexpr std::size_t kMostIds = 64;

bool Holds(std::string_view text, char character) {
    return std::memchr(text.data(), character, text.size()) != nullptr;
}

bool IsEscaped(std::string_view value) {
    return Holds(value, '&') || Holds(value, '\\');
}

/// What a reader takes for a blank or another line break in an attribute.
bool HoldsControl(std::string_view value) {
    // Without a way out of it, several characters are looked at at once.
    bool holds = false;
    for (const char character : value)
        holds |= static_cast<unsigned char>(character) < 0x20;
    return holds;
}

/// What the writer escapes in attributes, and nothing else.
bool Unescape(std::string_view value, std::string& result) {
    static constexpr std::pair<std::string_view, char> kEntities[] = {
        {"&amp;", '&'},  {"&lt;", '<'},   {"&gt;", '>'}, {"&quot;", '"'},
        {"&#13;", '\r'}, {"&#10;", '\n'}, {"&#9;", '\t'}};
    result.clear();
    while (!value.empty()) {
        const std::size_t plain = std::min(value.find('&'), value.size());
        result.append(value.substr(0, plain));
        value.remove_prefix(plain);
        if (value.empty()) break;
        const std::size_t before = value.size();
        for (const auto& [entity, character] : kEntities) {
            if (!value.starts_with(entity)) continue;
            result += character;
            value.remove_prefix(entity.size());
            break;
        }
        if (value.size() == before) return false;
    }
    return true;
}

class Scanner {
public:
    Scanner(std::string_view bytes, const ContentFileIndex::Visitor& visit)
        : mBytes(bytes), mVisit(visit) {
        mItem.reserve(kUsualName);
        mNext.reserve(kUsualName);
    }

    bool Run(std::string& relatedProject) {
        if (!Take(kHead) || !TakeProperty(relatedProject)) return false;
        while (mBytes.compare(mAt, kComment.size(), kComment) == 0)
            if (!TakeComment()) return false;
        // The writer closes a root without content otherwise.
        if (mRun.Count == 0 && relatedProject.empty()) return false;
        return Tell() && mBytes.substr(mAt) == kTail;
    }

private:
    bool Take(std::string_view wanted) {
        if (mBytes.compare(mAt, wanted.size(), wanted) != 0) return false;
        mAt += wanted.size();
        return true;
    }

    /// Of a length that the compiler knows, for what each comment is asked for.
    template <std::size_t kSize>
    bool Take(const char (&wanted)[kSize]) {
        constexpr std::size_t kLength = kSize - 1;
        if (mBytes.size() - mAt < kLength || std::memcmp(mBytes.data() + mAt, wanted, kLength) != 0)
            return false;
        mAt += kLength;
        return true;
    }

    bool TakeProperty(std::string& relatedProject) {
        if (mBytes.compare(mAt, kProperty.size(), kProperty) != 0) return true;
        const std::size_t end = mBytes.find(kPropertyEnd, mAt);
        if (end == std::string_view::npos) return false;
        const std::string element(mBytes.substr(mAt + 1, end + kPropertyEnd.size() - mAt - 1));
        XmlFile xml;
        if (XmlReader({}, element).Read(xml)) return false;
        relatedProject = xml.Root.ContentText();
        std::string written;
        AppendXml(written,
                  XmlElement::WithText("property", relatedProject).With("name", "RelatedProject"),
                  1);
        return Take(written);
    }

    /// The value up to the next quotation mark, which is passed over.
    bool TakeValue(std::string_view& value) {
        const void* end = std::memchr(mBytes.data() + mAt, '"', mBytes.size() - mAt);
        if (!end) return false;
        const auto length =
            static_cast<std::size_t>(static_cast<const char*>(end) - (mBytes.data() + mAt));
        value = mBytes.substr(mAt, length);
        mAt += length + 1;
        return true;
    }

    bool TakeComment() {
        const std::size_t begin = mAt;
        mAt += kComment.size();
        std::string_view item, tag, id, other;
        if (!TakeValue(item) || item.empty()) return false;
        if (!Take(" tag=\"") || !TakeValue(tag) || tag.empty()) return false;
        if (!Take(" id=\"") || !TakeValue(id) || id.empty()) return false;
        if (Take(" qualifier=\"") && !TakeValue(other)) return false;
        if (Take(" xmltag=\"") && !TakeValue(other)) return false;
        if (!Take("/>") && !(Take(">") && TakeContent())) return false;
        return TakeIn(begin, item, tag) && TakeId(id);
    }

    /// False for the second of a run: the reader gives it an Id of its own, which is to last.
    bool TakeId(std::string_view id) {
        if (mRun.Count == 1) mIds.clear();
        if (IsEscaped(id) || HoldsControl(id) || mIds.size() == kMostIds ||
            std::find(mIds.begin(), mIds.end(), id) != mIds.end())
            return false;
        mIds.push_back(id);
        return true;
    }

    bool TakeContent() {
        if (Take("<![CDATA[")) {
            const std::size_t end = mBytes.find(kCDataEnd, mAt);
            if (end == std::string_view::npos) return false;
            mAt = end + kCDataEnd.size();
        } else {
            mAt = std::min(mBytes.find('<', mAt), mBytes.size());
        }
        return Take("</comment>");
    }

    /// Counts a comment to the run of its item. False where it is not behind the one before.
    bool TakeIn(std::size_t begin, std::string_view item, std::string_view tag) {
        // The order is that of what the tags mean, which these are not.
        if (IsEscaped(tag) || HoldsControl(tag)) return false;
        if (mRun.Count > 0 && item == mRawItem) {
            if (tag < mTag) return false;
        } else {
            if (!Tell() || !Decode(item)) return false;
            if (mRun.Count > 0 && mNext <= mItem) return false;
            mItem.swap(mNext);
            mRun = {{}, begin, 0, 0};
        }
        mRawItem = item;
        mTag = tag;
        ++mRun.Count;
        mRun.Length = mAt - mRun.Offset;
        return true;
    }

    /// Into mNext.
    bool Decode(std::string_view item) {
        if (HoldsControl(item)) return false;
        if (!IsEscaped(item)) {
            mNext.assign(item);
            return true;
        }
        if (!Unescape(item, mNext)) return false;
        if (mNext.find('\\') != std::string::npos) mNext = StoredText::Decode(mNext);
        return !mNext.empty();
    }

    bool Tell() {
        if (mRun.Count == 0) return true;
        // Where a zero byte stands, the reader sees the end of the file.
        if (Holds(mBytes.substr(mRun.Offset, mRun.Length), '\0')) return false;
        mRun.Item = mItem;
        mVisit(mRun);
        return true;
    }

    std::string_view mBytes;
    const ContentFileIndex::Visitor& mVisit;
    std::size_t mAt = 0;
    ContentFileIndex::Run mRun;
    std::string_view mRawItem;
    std::string_view mTag;
    std::vector<std::string_view> mIds; ///< of the run
    std::string mItem;
    std::string mNext;
};

} // namespace

bool ContentFileIndex::Scan(std::string_view bytes, std::string& relatedProject,
                            const Visitor& visit) {
    return Scanner(bytes, visit).Run(relatedProject);
}

} // namespace paperkite
