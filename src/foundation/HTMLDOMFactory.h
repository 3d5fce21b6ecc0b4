#pragma once

#include "foundation/Object.h"

#include <string>

namespace paperkite {

class HTMLDocument;

/// Makes documents that can be walked and changed out of HTML text.
class HTMLDOMFactory {
public:
    virtual ~HTMLDOMFactory() = default;

    /// `base` is what relative addresses count from; usually nothing.
    virtual Ref<HTMLDocument> CreateFromString(const std::string& html,
                                               const Ref<Object>& base) = 0;
    /// A file that cannot be read is an error.
    virtual Ref<HTMLDocument> CreateFromFile(const std::string& path, const Ref<Object>& base) = 0;
};

} // namespace paperkite
