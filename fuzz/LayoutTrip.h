#pragma once

#include "foundation/Services.h"
#include "model/TemplateParser.h"
#include "pagelayout/LayoutEnvelope.h"
#include "pagelayout/MetaDocumentEdit.h"
#include "platform/html/HtmlServices.h"

#include <memory>
#include <string>
#include <vector>

namespace paperkite::fuzz {

/// A layout that was opened for editing and saved untouched, on the real parser, documents and
/// tidy.
///
///     const LayoutTrip trip(html);
///     trip.Saved()      // the layout, or nothing where it could not be saved
///     trip.Messages()   // what its author was told
class LayoutTrip {
public:
    explicit LayoutTrip(const std::string& html) {
        UseServices();
        const LayoutEnvelope envelope(html);
        auto space = MakeRef<TemplateNamespace>();
        space->Moniker = "kite.source";
        const auto owner = MakeRef<PageTemplate>();
        owner->Namespaces = {space};
        mEdited = envelope.GetRoot();
        MetaDocumentEdit edit;
        edit.SetTemplate(owner);
        mSpans = edit.ConvertMetaDocumentToSpanDocument(envelope.GetRoot());
        mSaved = envelope.Around(edit.ConvertSpanDocumentToMetaDocument(mSpans));
        CurrentServices() = mBefore;
    }

    /// The root, without what stands around it.
    const std::string& Edited() const { return mEdited; }
    const std::string& Spans() const { return mSpans; }
    const std::string& Saved() const { return mSaved; }
    const std::string& Messages() const { return mMessages->Text; }

    /// The source texts of a layout's outermost elements, in order.
    static std::vector<std::string> Sources(const std::string& html) {
        std::vector<std::string> sources;
        TemplateParser parser;
        parser.SetPageLayoutTags();
        parser.SetMetaDocumentMode(true);
        parser.LoadText(html);
        for (const auto& piece : parser.GetSections()->Item(std::size_t{1})->Elements)
            if (piece->ElementType == kParserTagElement) sources.push_back(piece->SourceText);
        return sources;
    }

private:
    class KeptMessages : public MessageBox {
    public:
        MessageAnswer Show(const std::string& text, const std::string&, MessageIcon,
                           MessageButtons) override {
            Text += text + "\n";
            return MessageAnswer::Ok;
        }
        std::string Text;
    };

    void UseServices() {
        Services& services = CurrentServices();
        services.CreateParserTemplate = [] { return MakeRef<TemplateParser>(); };
        services.HTMLDOMFactory = MakeHTMLDOMFactory();
        services.HTMLTidy = MakeHTMLTidy();
        services.MessageBox = mMessages;
    }

    Services mBefore = CurrentServices();
    std::shared_ptr<KeptMessages> mMessages = std::make_shared<KeptMessages>();
    std::string mEdited;
    std::string mSpans;
    std::string mSaved;
};

} // namespace paperkite::fuzz
