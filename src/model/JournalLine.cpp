#include "model/JournalLine.h"

#include "model/XmlReader.h"
#include "model/XmlWriter.h"

#include <cstdint>
#include <cstdio>

namespace paperkite::JournalLine {

namespace {

constexpr std::size_t kDigits = 16;

} // namespace

std::string ChecksumOf(std::string_view bytes) {
    std::uint64_t sum = 0xcbf29ce484222325u;
    for (const char character : bytes)
        sum = (sum ^ static_cast<unsigned char>(character)) * 0x100000001b3u;
    char digits[kDigits + 1];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(sum));
    return digits;
}

std::string Write(const XmlElement& element) {
    XmlFile file;
    file.Root = element;
    // Attributes hold no line break, so that only the one behind the declaration is left.
    const std::string whole = WriteXml(file);
    const std::string bytes =
        whole.substr(whole.find('\n') + 1, whole.size() - whole.find('\n') - 2);
    return ChecksumOf(bytes) + ' ' + bytes + '\n';
}

std::optional<XmlElement> Read(std::string_view line) {
    if (line.size() < kDigits + 1 || line[kDigits] != ' ') return {};
    const std::string bytes(line.substr(kDigits + 1));
    if (ChecksumOf(bytes) != line.substr(0, kDigits)) return {};
    XmlFile file;
    if (XmlReader({}, bytes).Read(file)) return {};
    return std::move(file.Root);
}

} // namespace paperkite::JournalLine
