#include "widgets/PropertyItem.h"

#include "widgets/PropertiesList.h"
#include "widgets/PropertyValues.h"

namespace paperkite {

void PropertyItem::SetValue(const std::string& value) {
    if (!Assign(mValue, value) || !mList) return;
    mList->Events.Change.Raise(mList->Item(mIndex));
}

const std::string& PropertyItem::GetValueText() const {
    const auto found = mChoiceOfValue.find(mValue);
    return found == mChoiceOfValue.end() ? mValue : mChoices[found->second].Text;
}

std::string PropertyItem::GetProblem() const {
    return PropertyValues::ProblemWith(mValueType, mValue);
}

void PropertyItem::SetChoices(const std::vector<std::string>& texts) {
    mChoices.clear();
    mChoiceTexts.clear();
    mChoiceOfValue.clear();
    for (const std::string& text : texts)
        AddChoice(text, text);
    TellChanged();
}

bool PropertyItem::AddChoice(const std::string& text, const std::string& value) {
    if (!mChoiceTexts.insert(text).second) return false;
    mChoiceOfValue.try_emplace(value, mChoices.size());
    mChoices.push_back({text, value});
    TellChanged();
    return true;
}

void PropertyItem::SetChecked(bool value) {
    if (!Assign(mChecked, value) || !mList) return;
    mList->Events.ItemCheck.Raise(mList->Item(mIndex));
}

void PropertyItem::TellChanged() {
    if (mList) mList->TellRowChanged(*this);
}

} // namespace paperkite
