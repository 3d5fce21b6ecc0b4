#pragma once

#include "doctypes/source/SourceDeclaration.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace paperkite {

/// Where everything that a file declares stands: at this place or below it. Only for languages in
/// which the path alone tells (Python, JavaScript, TypeScript, Rust and those that have no refiner
/// of their own); nothing for all others, in which a file may declare names anywhere.
std::optional<std::vector<ScopeStep>> GroupOfFile(std::string_view path);

/// The groups of files that are still to be read, as a tree of names. What they leave alone bears
/// its qualified name for good; see SourceIndexBuilder::Settled.
class OpenGroups {
public:
    using Place = std::uint32_t;
    static constexpr Place Root = 0;
    static constexpr Place Nothing = 0xFFFFFFFF;

    /// False, and nothing is noted, when the path of the file does not tell its group.
    bool Open(std::string_view path);
    /// The file, which was opened before, is read.
    void Close(std::string_view path);

    /// The place of that name below another one; Nothing when no group leads there.
    Place Find(Place above, std::string_view name) const;
    /// Whether open files declare what stands right there, and what is below.
    bool IsOpen(Place place) const { return mNodes[place].Files > 0; }
    /// Whether open files are there or further below.
    bool LeadsToOpen(Place place) const { return mNodes[place].FilesBelow > 0; }

private:
    struct Node {
        std::size_t Files = 0;
        std::size_t FilesBelow = 0; ///< with its own
    };

    std::vector<Place> WayTo(const std::vector<ScopeStep>& group);

    std::vector<Node> mNodes{1};
    std::map<std::pair<Place, std::string>, Place> mPlaces;
};

} // namespace paperkite
