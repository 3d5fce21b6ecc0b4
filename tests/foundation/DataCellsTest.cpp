#include "foundation/DataCells.h"
#include "foundation/ObjectCollection.h"

#include <gtest/gtest.h>

namespace paperkite {

TEST(DataCells, CellsAreFoundByKeyAndKeepTheirOrder) {
    DataCells cells;
    cells.Add("ProjectName", MakeRef<DataCell>(Value("leveldb")));
    cells.Add("BaseURL", MakeRef<DataCell>());
    EXPECT_EQ(cells.Item("ProjectName")->GetValue().ToText(), "leveldb");
    EXPECT_EQ(cells.KeyAt(2), "BaseURL");
    EXPECT_TRUE(cells.Item(2)->GetValue().IsEmpty());
    EXPECT_THROW(cells.Add("BaseURL", MakeRef<DataCell>()), Error);
    EXPECT_THROW(cells.Item("Other"), Error);
}

TEST(DataCells, ACellHoldsAValueOrAnObject) {
    const auto object = MakeRef<TextCollection>();
    DataCell cell;
    cell.SetObjectValue(object);
    EXPECT_EQ(cell.GetObjectValue(), object);
    cell.SetValue(Value("text"));
    EXPECT_FALSE(cell.GetObjectValue());
    EXPECT_EQ(cell.GetValue().ToText(), "text");
}

} // namespace paperkite
