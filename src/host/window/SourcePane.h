#pragma once

#include "widgets/Control.h"

#include <string>

class QWidget;

namespace paperkite {

class ViewFactory;

/// Shows, read-only, what the source says about an item: where it stands, how it is declared, and
/// the comment before it.
class SourcePane : public Control {
public:
    explicit SourcePane(std::string name = {}) : Control(std::move(name)) {}

    const std::string& GetPlace() const { return mPlace; }
    const std::string& GetDeclaration() const { return mDeclaration; }
    const std::string& GetComment() const { return mComment; }
    /// Empty texts for an item that stands nowhere.
    void Show(const std::string& place, const std::string& declaration, const std::string& comment);

    /// Lets a factory make views of this role.
    static void RegisterView(ViewFactory& factory);

private:
    std::string mPlace;
    std::string mDeclaration;
    std::string mComment;
};

} // namespace paperkite
