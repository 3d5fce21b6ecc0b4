#include "doctypes/source/ParameterStep.h"

#include "doctypes/source/SourceIndexBuilder.h"

#include <algorithm>

namespace paperkite {

namespace {

constexpr std::string_view kMark = "~:";

} // namespace

std::string ParameterStep(const std::vector<SourceParameter>& parameters, std::size_t position) {
    const std::string& name = parameters[position].Name;
    const auto isNamed = [&](const SourceParameter& other) { return other.Name == name; };
    const auto own = parameters.begin() + static_cast<std::ptrdiff_t>(position);
    const bool isFirst = std::none_of(parameters.begin(), own, isNamed);
    return ":" + (name.empty() || !isFirst ? std::to_string(position + 1) : EncodedStep(name));
}

bool IsParameterName(std::string_view qualifiedName) {
    const std::size_t cut = qualifiedName.rfind('~');
    return cut != std::string_view::npos && qualifiedName.substr(cut).starts_with(kMark);
}

std::optional<ParameterPlace> FindParameter(const SourceIndex& index,
                                            std::string_view qualifiedName) {
    if (!IsParameterName(qualifiedName)) return {};
    const std::size_t cut = qualifiedName.rfind('~');
    const auto callable = index.Find(qualifiedName.substr(0, cut));
    if (!callable) return {};
    const auto parameters = index.Parameters(*callable);
    for (std::size_t position = 0; position < parameters.size(); ++position)
        if (ParameterStep(parameters, position) == qualifiedName.substr(cut + 1))
            return ParameterPlace{*callable, position};
    return {};
}

} // namespace paperkite
