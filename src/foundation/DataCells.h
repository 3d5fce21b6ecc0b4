#pragma once

#include "foundation/Collection.h"
#include "foundation/DataCell.h"

#include <string>

namespace paperkite {

/// What the host of a comment designer hands over, by name, in its order.
class DataCells : public Object {
public:
    std::string TypeName() const override { return "DataCells"; }

    /// A key that is there already is an error.
    void Add(const std::string& key, const Ref<DataCell>& cell) { mCells.Add(cell, key); }
    std::size_t Count() const { return mCells.Count(); }
    /// An unknown key or position is an error.
    Ref<DataCell> Item(const std::string& key) const { return mCells.Item(key); }
    Ref<DataCell> Item(std::size_t position) const { return mCells.Item(position); }
    bool Contains(const std::string& key) const { return mCells.Contains(key); }
    const std::string& KeyAt(std::size_t position) const { return mCells.KeyAt(position); }

private:
    Collection<Ref<DataCell>> mCells;
};

} // namespace paperkite
