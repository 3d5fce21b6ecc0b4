#pragma once

#include "foundation/Services.h"

namespace paperkite {

/// Shows messages in the platform's own boxes, above the active window.
class MessageBoxService : public MessageBox {
public:
    MessageAnswer Show(const std::string& text, const std::string& title, MessageIcon icon,
                       MessageButtons buttons = MessageButtons::Ok) override;
};

} // namespace paperkite
