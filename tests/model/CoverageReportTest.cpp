#include "model/CoverageReport.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace paperkite {

namespace {

class Rows : public CoverageSource {
public:
    explicit Rows(std::vector<CoverageRow> rows) : mRows(std::move(rows)) {}

    void ForEach(const std::function<void(const CoverageRow&)>& visit) const override {
        for (const CoverageRow& row : mRows)
            visit(row);
    }

    bool Exists(const std::string& qualifiedName) const override {
        return std::any_of(mRows.begin(), mRows.end(), [&](const CoverageRow& row) {
            return row.QualifiedName == qualifiedName;
        });
    }

private:
    std::vector<CoverageRow> mRows;
};

Ref<CommentStore> StoreWith(const std::vector<std::string>& items) {
    auto store = MakeRef<CommentStore>();
    for (const std::string& item : items)
        store->Load(item, MakeRef<TaggedComment>(), {});
    return store;
}

std::string Listed(const CoverageReport& report) {
    std::string text;
    for (const auto& group : report.GetGroups())
        text += group.Name + " " + std::to_string(group.Documented) + "/" +
                std::to_string(group.Total) + "\n";
    return text;
}

const Rows kRows({{"a", "Class", "a.h"},
                  {"a~f", "Method", "a.h"},
                  {"a~g", "Method", "a.cpp"},
                  {"b", "Class", "b.h"}});

} // namespace

TEST(CoverageReport, CountsByKind) {
    const auto report = CoverageReport::Make(kRows, *StoreWith({"a", "a~g"}));
    EXPECT_EQ(Listed(report), "Class 1/2\nMethod 1/2\n");
    EXPECT_EQ(report.GetAll().Documented, 2u);
    EXPECT_EQ(report.GetAll().Total, 4u);
    EXPECT_EQ(report.GetAll().Percent(), 50.0);
}

TEST(CoverageReport, CountsByFile) {
    const auto report =
        CoverageReport::Make(kRows, *StoreWith({"a", "a~g"}), CoverageReport::Grouping::File);
    EXPECT_EQ(Listed(report), "a.cpp 1/1\na.h 1/2\nb.h 0/1\n");
}

TEST(CoverageReport, ItemsThatAreGoneAreListedAndNotCounted) {
    const auto report = CoverageReport::Make(kRows, *StoreWith({"z", "a", "c"}));
    EXPECT_EQ(report.GetAll().Documented, 1u);
    EXPECT_EQ(report.GetGone(), (std::vector<std::string>{"c", "z"}));
}

TEST(CoverageReport, ALimitIsReachedExactlyOrNot) {
    CoverageReport::Count count;
    count.Documented = 2;
    count.Total = 3;
    EXPECT_TRUE(count.Reaches(66.66));
    EXPECT_FALSE(count.Reaches(66.67));
    count.Documented = 3;
    EXPECT_TRUE(count.Reaches(100));
}

TEST(CoverageReport, NothingToDocumentIsFullyDocumented) {
    const auto report = CoverageReport::Make(Rows({}), *StoreWith({}));
    EXPECT_EQ(report.GetAll().Percent(), 100.0);
    EXPECT_TRUE(report.GetAll().Reaches(100));
}

} // namespace paperkite
