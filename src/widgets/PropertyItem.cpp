#include "widgets/PropertyItem.h"

#include "widgets/PropertiesList.h"

namespace paperkite {

void PropertyItem::SetValue(const std::string& value) {
    if (!Assign(mValue, value) || !mList) return;
    mList->Events.Change.Raise(mList->Item(mIndex));
}

void PropertyItem::SetChecked(bool value) {
    if (!Assign(mChecked, value) || !mList) return;
    mList->Events.ItemCheck.Raise(mList->Item(mIndex));
}

void PropertyItem::TellChanged() {
    if (mList) mList->TellRowChanged(*this);
}

} // namespace paperkite
