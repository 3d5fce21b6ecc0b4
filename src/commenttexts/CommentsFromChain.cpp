#include "commenttexts/CommentsFromChain.h"

#include <algorithm>

namespace paperkite {

CommentsFromChain CommentsFromChain::Follow(const std::string& from, const std::string& first,
                                            const Reference& reference) {
    CommentsFromChain chain;
    for (std::string name = first; !name.empty(); name = reference(name)) {
        chain.IsCircle = name == from || std::find(chain.Names.begin(), chain.Names.end(), name) !=
                                             chain.Names.end();
        if (chain.IsCircle) break;
        chain.Names.push_back(name);
    }
    return chain;
}

} // namespace paperkite
