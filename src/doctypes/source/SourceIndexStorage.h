#pragma once

#include "doctypes/source/SourceIndex.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace paperkite {

/// An index as bytes, nearly as it lies in memory. The bytes are for the machine that wrote them:
/// whoever keeps them sees to it that no other one reads them.
class SourceIndexStorage {
public:
    using Write = std::function<void(const void* bytes, std::size_t size)>;
    /// Fills the memory with the next bytes; false when there are not as many.
    using Read = std::function<bool(void* bytes, std::size_t size)>;

    /// Hands the bytes over piece by piece.
    static void Store(const SourceIndex& index, const Write& write);

    /// Trusts nothing: a number that leads nowhere, a circle, or a length that exceeds the size
    /// gives nothing.
    static std::optional<SourceIndex> Load(std::uint64_t size, const Read& read);

    /// A checksum of all that the index says.
    static std::uint64_t DigestOf(const SourceIndex& index);

private:
    struct Counts;
    static bool LoadTexts(const Counts& counts, const Read& read, SourceIndex& index);
    static bool IsSound(const SourceIndex& index);
    static bool AreEntitiesSound(const SourceIndex& index);
    static bool AreChildrenSound(const SourceIndex& index);
    static bool ArePlacesSound(const SourceIndex& index);
    static bool AreNamesSound(const SourceIndex& index);
};

} // namespace paperkite
