#include "host/TextContext.h"

#include "foundation/Unicode.h"

namespace paperkite {

namespace {

/// Bytes that are shown before and behind.
constexpr std::size_t kAround = 60;
constexpr std::string_view kCut = "…";

std::string OneLine(std::string_view text) {
    std::string line(text);
    for (char& byte : line)
        if (static_cast<unsigned char>(byte) < ' ') byte = ' ';
    return line;
}

} // namespace

TextContext TextContext::Of(std::string_view text, std::size_t from, std::size_t to) {
    std::size_t begin = from;
    while (begin > 0 && text[begin - 1] != '\n' && from - begin < kAround)
        --begin;
    const bool isCutBefore = begin > 0 && text[begin - 1] != '\n';
    while (begin < from && (IsContinuation(text[begin]) || text[begin] == ' '))
        ++begin;
    std::size_t end = to;
    while (end < text.size() && text[end] != '\n' && end - to < kAround)
        ++end;
    const bool isCutBehind = end < text.size() && text[end] != '\n';
    while (end > to && isCutBehind && IsContinuation(text[end]))
        --end;
    TextContext context;
    if (isCutBefore) context.Line = kCut;
    context.At = context.Line.size() + (from - begin);
    context.Length = to - from;
    context.Line += OneLine(text.substr(begin, end - begin));
    if (isCutBehind) context.Line += kCut;
    return context;
}

std::string TextContext::With(std::string_view replacement) const {
    std::string line = Line;
    return line.replace(At, Length, OneLine(replacement));
}

} // namespace paperkite
