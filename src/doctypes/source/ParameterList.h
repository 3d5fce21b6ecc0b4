#pragma once

#include "doctypes/source/SourceKind.h"

#include <string>
#include <string_view>
#include <vector>

namespace paperkite {

/// One parameter of a callable. A language that says no types leaves Type empty; a parameter
/// without a name leaves Name empty.
struct SourceParameter {
    std::string Name;
    std::string Type;
    std::string Default; ///< the text after '=', or empty
};

/// Takes a signature as the source writes it, "(int a, const T& b = {1,2}) const", apart.
class ParameterList {
public:
    ParameterList(std::string_view signature, SourceLanguage language);

    const std::vector<SourceParameter>& Parameters() const { return mParameters; }

    /// The types alone, in a spelling that does not depend on blanks, parameter names or defaults:
    /// "(int,const T&) const". Parameters of a language without types stand there by name.
    std::string TypesText() const;

    /// As TypesText, with every "outer::" before a name left out.
    std::string BareTypesText() const;

private:
    void Add(std::string_view text);
    void SplitTypeFirst(SourceParameter& parameter, std::string_view text) const;
    void SplitNameFirst(SourceParameter& parameter, std::string_view text) const;
    void SplitGo();

    SourceLanguage mLanguage;
    std::vector<SourceParameter> mParameters;
    std::string mQualifiers; ///< what stands behind the parameters and counts: "const", "&&"
};

/// Splits at the separator where no bracket and no quote is open.
std::vector<std::string_view> SplitTopLevel(std::string_view text, char separator);

/// Blanks at both ends cut off.
std::string_view Trimmed(std::string_view text);

/// A type with exactly the blanks it needs: "const  char * const" becomes "const char*const".
std::string NormalisedType(std::string_view type);

} // namespace paperkite
