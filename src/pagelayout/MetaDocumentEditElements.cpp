#include "pagelayout/MetaDocumentEdit.h"

#include "foundation/ScopeExit.h"
#include "foundation/Text.h"
#include "pagelayout/frmEditMetaSpan.h"

#include <algorithm>

// Inserting, editing and deleting the elements of a layout.

namespace paperkite {

namespace {

const std::string& TypeOf(const ParserElement& element) {
    return element.Attributes.Item("type")->Value;
}

Ref<ElementDef> DefinitionOf(const PageTemplate& from, const std::string& type) {
    if (from.Namespaces.empty()) RaiseError(ErrorNumber::SubscriptOutOfRange);
    Ref<ElementDef> found;
    for (const auto& definition : from.Namespaces.front()->ElementDefs)
        if (EqualIgnoringCase(definition->Name, type)) found = definition;
    return found;
}

} // namespace

bool MetaDocumentEdit::InsertMetaData() {
    return Procedure<bool>(*this, "InsertMetaData", [&](bool& result, Frame&) {
        const auto form = MakeRef<frmEditMetaSpan>();
        form->SetIsAdd(true);
        form->SetLayout(GetLayout());
        const Ref<PageTemplate> owner = GetTemplate();
        form->ctlBuilder->Initialise(owner->NamespaceDefs, owner);
        form->Show(FormMode::Modal);
        if (form->GetSuccess()) {
            const auto element = MakeRef<ParserElement>();
            element->ElementType = kParserTagElement;
            element->Section = mParserTemplate->GetSections()->Item(std::size_t{1});
            const auto type = MakeRef<ElementAttribute>();
            type->Name = "type";
            type->Value = form->ctlBuilder->GetElement()->Name;
            element->Attributes.Add(type, type->Name);
            form->ctlBuilder->Save(element);
            element->Text = form->GetText();
            mSpanProvider->Elements.Add(element);
            zForgetElementEdits();
            dedDocument->SetSelectedHTML(ElementToSpan(*element, mSpanProvider->Elements.Count()));
            Changed();
            result = true;
        }
        form->SetSafeToUnload(true);
    });
}

bool MetaDocumentEdit::EditMetaData() {
    return Procedure<bool>(*this, "EditMetaData", [&](bool& result, Frame& frame) {
        const Ref<HTMLElement> span = dedDocument->GetCurrentElement();
        Local watchSpan(frame, "span", span);
        const std::int32_t index = GetSpanIndex(span->GetId());
        const auto position = static_cast<std::size_t>(std::max(index, 0));
        const Ref<ParserElement> element = mSpanProvider->Elements.Item(position);
        const auto form = MakeRef<frmEditMetaSpan>();
        const Ref<PageTemplate> owner = GetTemplate();
        form->SetLayout(GetLayout());
        form->ctlBuilder->Initialise(owner->NamespaceDefs, owner);
        if (const auto definition = DefinitionOf(*owner, TypeOf(*element)))
            form->ctlBuilder->SetElement(definition);
        form->ctlBuilder->Load(element);
        form->SetText(TrimBlanks(element->Text));
        const ScopeExit end([&] {
            form->SetSafeToUnload(true);
            form->ctlBuilder->Terminate();
        });
        form->Show(FormMode::Modal);
        if (!form->GetSuccess()) return;
        const ElementStep before = zStepOf(position, span);
        bool isShown = false;
        // What the page does not show was not edited.
        const ScopeExit settle([&] {
            if (!isShown) zPutBack(before);
        });
        element->Text = form->GetText();
        form->ctlBuilder->Save(element);
        span->SetOuterHTML(ElementToSpan(*element, position));
        isShown = true;
        mUndoneElementSteps.clear();
        mElementSteps.push_back(before);
        Changed();
        result = true;
    });
}

MetaDocumentEdit::ElementStep MetaDocumentEdit::zStepOf(std::size_t index,
                                                        const Ref<HTMLElement>& span) const {
    const ParserElement& element = *mSpanProvider->Elements.Item(index);
    ElementStep step{index, element.Text, {}, span};
    for (const auto& attribute : element.Attributes)
        step.Attributes.emplace_back(attribute->Name, attribute->Value);
    return step;
}

void MetaDocumentEdit::zPutBack(const ElementStep& step) {
    ParserElement& element = *mSpanProvider->Elements.Item(step.Index);
    element.Text = step.Text;
    element.Attributes.Clear();
    for (const auto& [name, value] : step.Attributes) {
        const auto attribute = MakeRef<ElementAttribute>();
        attribute->Name = name;
        attribute->Value = value;
        element.Attributes.Add(attribute, name);
    }
}

void MetaDocumentEdit::zTakeBack(std::vector<ElementStep>& from, std::vector<ElementStep>& to) {
    if (from.empty()) return;
    const ElementStep step = std::move(from.back());
    from.pop_back();
    to.push_back(zStepOf(step.Index, step.Span));
    zPutBack(step);
    step.Span->SetOuterHTML(ElementToSpan(*mSpanProvider->Elements.Item(step.Index), step.Index));
    Changed();
}

bool MetaDocumentEdit::UndoElementEdit() {
    return Procedure<bool>(*this, "UndoElementEdit", [&](bool& result, Frame&) {
        result = !mElementSteps.empty();
        zTakeBack(mElementSteps, mUndoneElementSteps);
    });
}

bool MetaDocumentEdit::RedoElementEdit() {
    return Procedure<bool>(*this, "RedoElementEdit", [&](bool& result, Frame&) {
        result = !mUndoneElementSteps.empty();
        zTakeBack(mUndoneElementSteps, mElementSteps);
    });
}

void MetaDocumentEdit::zForgetElementEdits() {
    mElementSteps.clear();
    mUndoneElementSteps.clear();
}

bool MetaDocumentEdit::DeleteMetaData() {
    return Procedure<bool>(*this, "DeleteMetaData", [&](bool&, Frame&) {
        zForgetElementEdits();
        dedDocument->GetCurrentElement()->SetOuterHTML("");
        Changed();
    });
}

} // namespace paperkite
