#include "foundation/DataCell.h"

namespace paperkite {

DataCell::DataCell(const paperkite::Value& value) : mValue(value) {}

void DataCell::SetValue(const paperkite::Value& value) {
    mValue = value;
}

Ref<Object> DataCell::GetObjectValue() const {
    return mValue.IsObject() ? mValue.ToObject() : Ref<Object>();
}

void DataCell::SetObjectValue(const Ref<Object>& value) {
    mValue = paperkite::Value(value);
}

} // namespace paperkite
