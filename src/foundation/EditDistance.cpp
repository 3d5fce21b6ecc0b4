#include "foundation/EditDistance.h"

#include <algorithm>
#include <vector>

namespace paperkite {

std::size_t EditDistance(std::string_view left, std::string_view right, std::size_t limit) {
    const std::size_t difference =
        left.size() > right.size() ? left.size() - right.size() : right.size() - left.size();
    if (difference > limit) return limit + 1;
    std::vector<std::size_t> row(right.size() + 1);
    for (std::size_t column = 0; column <= right.size(); ++column)
        row[column] = column;
    for (std::size_t line = 1; line <= left.size(); ++line) {
        std::size_t diagonal = row[0];
        row[0] = line;
        std::size_t smallest = line;
        for (std::size_t column = 1; column <= right.size(); ++column) {
            const std::size_t replaced = diagonal + (left[line - 1] != right[column - 1]);
            diagonal = row[column];
            row[column] = std::min({row[column] + 1, row[column - 1] + 1, replaced});
            smallest = std::min(smallest, row[column]);
        }
        if (smallest > limit) return limit + 1;
    }
    return std::min(row.back(), limit + 1);
}

} // namespace paperkite
