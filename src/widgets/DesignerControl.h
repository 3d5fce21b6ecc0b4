#pragma once

#include "foundation/CommentDesigner.h"
#include "widgets/Container.h"
#include "widgets/HtmlEdit.h"

#include <string>

namespace paperkite {

/// The control of a comment designer: what its editor shows, and the designer behind it. Concrete
/// ones are made by class name through Services::CreateDesigner.
class DesignerControl : public Container {
public:
    using Container::Container;

    /// The designer; lives as long as the control. Never nothing.
    virtual Ref<CommentDesigner> GetObject() = 0;
    /// The HTML editing widget inside, or nothing.
    virtual Ref<HtmlEdit> GetEditor() const { return {}; }

    struct {
        Event<> DocumentComplete;
        Event<const std::string&> HyperlinkClick; ///< hRef
        Event<const std::string&, std::string&, bool&>
            InsertHyperLinkRequest;                     ///< SelectedText, Link, Cancel
        Event<const std::string&> SpellIgnoreWordAdded; ///< Word
    } DesignerEvents;
};

} // namespace paperkite
