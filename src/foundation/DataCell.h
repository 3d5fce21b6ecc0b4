#pragma once

#include "foundation/Object.h"

namespace paperkite {

/// One value that the host of a comment designer hands over: a plain value or an object.
class DataCell : public Object {
public:
    DataCell() = default;
    explicit DataCell(const paperkite::Value& value);
    std::string TypeName() const override { return "DataCell"; }

    const paperkite::Value& GetValue() const { return mValue; }
    void SetValue(const paperkite::Value& value);

    /// Nothing when the cell holds a plain value.
    Ref<Object> GetObjectValue() const;
    void SetObjectValue(const Ref<Object>& value);

private:
    paperkite::Value mValue;
};

} // namespace paperkite
