#include "host/window/ItemFinder.h"

#include "host/ItemTitle.h"
#include "platform/qt/ControlView.h"
#include "platform/qt/Icons.h"
#include "platform/qt/ViewFactory.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace paperkite {

namespace {

constexpr std::size_t kMostMatches = 50;
/// Longer captions are cut in the middle.
constexpr std::size_t kLongestShown = 300;
/// A narrow field still offers rows that can be told apart.
constexpr int kLeastLetters = 60;
constexpr int kNameRole = Qt::UserRole + 1;

class ItemFinderView : public ControlView {
public:
    ItemFinderView(const Ref<ItemFinder>& finder, QWidget* parent)
        : ControlView(finder, new QWidget(parent)), mFinder(finder) {
        auto* column = new QVBoxLayout(GetWidget());
        // A dialog has room around all that stands in it.
        const int margin = qobject_cast<QDialog*>(GetWidget()->window()) ? 0 : 4;
        column->setContentsMargins(margin, margin, margin, margin);
        mField = new QLineEdit(GetWidget());
        mField->setPlaceholderText(QObject::tr("Find an item"));
        mField->setClearButtonEnabled(true);
        mField->addAction(Icons::ByName("edit-find"), QLineEdit::LeadingPosition);
        column->addWidget(mField);
        mMatches = new QStandardItemModel(this);
        mCompleter = new QCompleter(mMatches, this);
        // The matches are found already; the completer only shows them.
        mCompleter->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
        mCompleter->setMaxVisibleItems(12);
        mField->setCompleter(mCompleter);
        mCompleter->popup()->setTextElideMode(Qt::ElideMiddle);
        mCompleter->popup()->setMinimumWidth(kLeastLetters *
                                             mField->fontMetrics().averageCharWidth());
        connect(mField, &QLineEdit::textEdited, this, [this](const QString& text) { Offer(text); });
        mField->installEventFilter(this);
        mCompleter->popup()->installEventFilter(this);
        connect(mCompleter, qOverload<const QModelIndex&>(&QCompleter::activated), this,
                [this](const QModelIndex& index) { Choose(index.data(kNameRole).toString()); });
        SetFocusTarget(mField);
        Tie();
    }

protected:
    // The return key takes the first match, once: in a dialog it must not press OK as well. Where a
    // text matches nothing it does nothing, as OK would take what was chosen before.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress && (watched == mField || IsPopup(watched))) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if ((key == Qt::Key_Return || key == Qt::Key_Enter) && (ChooseFirst() || TellNothing()))
                return true;
        }
        return ControlView::eventFilter(watched, event);
    }

private:
    bool IsPopup(const QObject* watched) const {
        return mCompleter && watched == mCompleter->popup();
    }

    void Offer(const QString& text) {
        mIsAsked = true;
        mMatches->clear();
        for (const ItemFinder::Match& match : mFinder->Find(text.toStdString(), kMostMatches)) {
            const QString row = QString::fromStdString(
                ShortenedInMiddle(match.Caption, kLongestShown) +
                (match.Scope.empty() ? ""
                                     : "  —  " + ShortenedInMiddle(match.Scope, kLongestShown)));
            auto* item = new QStandardItem(row);
            item->setToolTip(row);
            item->setData(QString::fromStdString(match.QualifiedName), kNameRole);
            mMatches->appendRow(item);
        }
        if (text.isEmpty()) return;
        if (mMatches->rowCount() == 0) Say(QObject::tr("No item has “%1” in its name").arg(text));
        if (const auto& note = mFinder->GetNote(); !note.empty()) Say(QString::fromStdString(note));
    }

    void Say(const QString& text) {
        auto* row = new QStandardItem(text);
        row->setEnabled(false);
        mMatches->appendRow(row);
    }

    /// The match that is marked, or the first one; false where there is nothing left to choose.
    bool ChooseFirst() {
        const QModelIndex marked = mCompleter->popup()->currentIndex();
        const bool isMarked = mCompleter->popup()->isVisible() && marked.isValid();
        const QModelIndex index = isMarked ? marked : mMatches->index(0, 0);
        if (!mIsAsked || !index.isValid() || !index.flags().testFlag(Qt::ItemIsEnabled))
            return false;
        Choose(index.data(kNameRole).toString());
        return true;
    }

    /// Says again that nothing matches; false where something does.
    bool TellNothing() {
        if (!mIsAsked || mField->text().isEmpty()) return false;
        mCompleter->complete();
        return true;
    }

    void Choose(const QString& qualifiedName) {
        mIsAsked = false;
        mCompleter->popup()->hide();
        if (!qualifiedName.isEmpty()) mFinder->UserChoose(qualifiedName.toStdString());
    }

    Ref<ItemFinder> mFinder;
    QLineEdit* mField;
    QStandardItemModel* mMatches;
    QCompleter* mCompleter = nullptr;
    /// The present matches have not been chosen from yet.
    bool mIsAsked = false;
};

} // namespace

std::vector<ItemFinder::Match> ItemFinder::Find(const std::string& text, std::size_t most) const {
    if (!mSearch || text.empty()) return {};
    return mSearch(text, most);
}

void ItemFinder::RegisterView(ViewFactory& factory) {
    factory.RegisterRole<ItemFinder>(
        [](ViewFactory&, const Ref<ItemFinder>& finder, QWidget* parent) {
            return (new ItemFinderView(finder, parent))->GetWidget();
        });
}

} // namespace paperkite
