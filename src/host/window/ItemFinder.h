#pragma once

#include "foundation/Event.h"
#include "widgets/Control.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace paperkite {

class ViewFactory;

/// A field that finds items by their names while one types, and offers the best matches.
class ItemFinder : public Control {
public:
    /// One item that is offered.
    struct Match {
        std::string Caption;
        /// What it stands in.
        std::string Scope;
        std::string QualifiedName;
    };
    using Search = std::function<std::vector<Match>(const std::string& text, std::size_t most)>;

    explicit ItemFinder(std::string name = {}) : Control(std::move(name)) {}

    void SetSearch(Search search) { mSearch = std::move(search); }
    std::vector<Match> Find(const std::string& text, std::size_t most) const;

    /// What is said below the matches, such as that they may not be all; empty for nothing.
    const std::string& GetNote() const { return mNote; }
    void SetNote(std::string note) { mNote = std::move(note); }

    struct {
        Event<const std::string&> Chosen; ///< the qualified name
    } Events;

    /// The author chose one of the matches.
    void UserChoose(const std::string& qualifiedName) { Events.Chosen.Raise(qualifiedName); }

    /// Lets a factory make views of this role.
    static void RegisterView(ViewFactory& factory);

private:
    Search mSearch;
    std::string mNote;
};

} // namespace paperkite
