#pragma once

#include <string>
#include <string_view>

namespace paperkite {

/// What the address of a link says by its form, whether there is anything behind it or not.
///
///     LinkTarget::Of("zoo~Dog.html#age").File        // "zoo~Dog.html"
///     LinkTarget::Of("ms-its:help.chm").Problem      // says what is missing
struct LinkTarget {
    enum class Kind {
        File,      ///< a page or another file, beside the page that the link stands on
        LocalFile, ///< a page or another file by its whole path ("file:", "C:\")
        Bookmark,  ///< a place on the page that the link stands on ("#")
        HelpTopic, ///< a topic in another help file ("ms-its:", "ms-help://")
        Outside,   ///< whatever another program opens ("https:", "mailto:")
        Malformed, ///< see Problem
    };

    Kind What = Kind::Malformed;
    /// The address as a browser takes it: without the white space at its ends.
    std::string Address;
    /// Of files: the path as it is written, without what stands behind "?" or "#".
    std::string File;
    /// What is wrong with a malformed one and how to mend it, in whole sentences.
    std::string Problem;

    /// The address as an attribute's value, entities decoded. Takes linear time.
    static LinkTarget Of(std::string_view address);
};

/// The scheme of an address that is a script or a text of its own and leads to no page, with its
/// colon, as browsers read it: what cannot be seen and the case count for nothing. Empty for
/// others.
std::string ScriptSchemeOf(std::string_view address);

/// A text with each "%" and two hexadecimal digits replaced by the byte that they mean.
std::string PercentDecoded(std::string_view text);

} // namespace paperkite
