#include "model/CoverageReport.h"

#include <map>

namespace paperkite {

double CoverageReport::Count::Percent() const {
    if (Total == 0) return 100;
    return 100.0 * static_cast<double>(Documented) / static_cast<double>(Total);
}

bool CoverageReport::Count::Reaches(double percent) const {
    return Total == 0 ||
           100.0 * static_cast<double>(Documented) >= percent * static_cast<double>(Total);
}

CoverageReport CoverageReport::Make(const CoverageSource& source, const CommentStore& comments,
                                    Grouping grouping) {
    CoverageReport report;
    std::map<std::string, Count> groups;
    source.ForEach([&](const CoverageRow& row) {
        Count& group = groups[grouping == Grouping::Kind ? row.Kind : row.File];
        ++group.Total;
        ++report.mAll.Total;
        if (!comments.IsDocumented(row.QualifiedName)) return;
        ++group.Documented;
        ++report.mAll.Documented;
    });
    for (const auto& [name, count] : groups)
        report.mGroups.push_back({count, name});
    for (std::string& name : comments.QualifiedNames())
        if (!source.Exists(name)) report.mGone.push_back(std::move(name));
    return report;
}

} // namespace paperkite
