#include "commenttexts/CommentForm.h"

#include "foundation/Text.h"

namespace paperkite {

namespace {

struct FormOfClass {
    const char* Class;
    CommentForm Form;
};

constexpr FormOfClass kForms[] = {
    {".dsrKeywords", CommentForm::Keywords},
    {".dsrIsNew", CommentForm::IsNew},
    {".dsrIsExample", CommentForm::IsExample},
    {".dsrExampleSource", CommentForm::ExampleSource},
    {".dsrCommentsFrom", CommentForm::CommentsFrom},
    {".dsrMenuItem", CommentForm::MenuItem},
    {".dsrSubItem", CommentForm::SubItems},
    {".dsrXMLIsland", CommentForm::Xml},
};

} // namespace

CommentForm FormOf(const TaggedCommentDef* definition) {
    if (definition)
        for (const FormOfClass& entry : kForms)
            if (EndsWithIgnoringCase(definition->DesignerProgID, entry.Class)) return entry.Form;
    return CommentForm::Html;
}

} // namespace paperkite
