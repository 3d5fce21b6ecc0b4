#include "host/window/CoverageStatus.h"

#include "model/CoverageReport.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

namespace paperkite {

namespace {

/// As the coverage counts: what is private, or inside something private, is left out.
bool Counts(const SourceItem& item) {
    const SourceIndex& index = item.GetIndex();
    if (item.GetEntity() == SourceIndex::Root) return false;
    for (auto entity = item.GetEntity(); entity != SourceIndex::Root; entity = index.Parent(entity))
        if (index.Access(entity) == SourceAccess::Private) return false;
    return true;
}

} // namespace

CoverageStatus::CoverageStatus(QWidget* parent) : QWidget(parent) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 8, 0);
    row->setSpacing(16);
    mMembers = new QLabel(this);
    mBar = new QProgressBar(this);
    mBar->setFixedSize(120, 8);
    mBar->setTextVisible(false);
    mBar->setRange(0, 1000);
    mBar->setAccessibleName(tr("Documented share of the project"));
    mProject = new QLabel(this);
    for (QLabel* label : {mMembers, mProject})
        label->setForegroundRole(QPalette::PlaceholderText);
    row->addWidget(mMembers);
    row->addWidget(mBar);
    row->addWidget(mProject);
    Show();
}

void CoverageStatus::SetSession(const ProjectSession* session) {
    mSession = session;
    mItem.clear();
    mCommented.clear();
    mDocumented = 0;
    mTotal = 0;
    if (session) {
        const auto report =
            CoverageReport::Make(*session->GetProvider(), *session->GetProject()->GetComments());
        mDocumented = report.GetAll().Documented;
        mTotal = report.GetAll().Total;
        const auto names = session->GetProject()->GetComments()->QualifiedNames();
        mCommented.insert(names.begin(), names.end());
    }
    Show();
}

void CoverageStatus::SetItem(const std::string& qualifiedName) {
    mItem = qualifiedName;
    CountMembers();
}

void CoverageStatus::SetDocumented(const std::string& qualifiedName, bool documented) {
    // Every change of a comment is told, also where the item stays as documented as it was.
    const bool isNews =
        documented ? mCommented.insert(qualifiedName).second : mCommented.erase(qualifiedName) > 0;
    const auto item = mSession->GetProvider()->GetItem(qualifiedName).As<SourceItem>();
    if (isNews && item && Counts(*item)) documented ? ++mDocumented : --mDocumented;
    Show();
    CountMembers();
}

void CoverageStatus::CountMembers() {
    mMembers->clear();
    if (!mSession || mItem.empty()) return;
    const auto item = mSession->GetProvider()->GetItem(mItem).As<SourceItem>();
    if (!item) return;
    const SourceIndex& index = item->GetIndex();
    SourceIndex::Id type = item->GetEntity();
    if (index.Children(type).empty() && type != SourceIndex::Root) type = index.Parent(type);
    std::size_t documented = 0;
    std::size_t total = 0;
    for (const SourceIndex::Id child : index.Children(type)) {
        if (index.Access(child) == SourceAccess::Private) continue;
        ++total;
        if (mSession->GetProject()->GetComments()->IsDocumented(index.QualifiedName(child)))
            ++documented;
    }
    if (total == 0) return;
    const bool mayGrow = mSession->IsPart() && IsGroup(index.Kind(type));
    mMembers->setText((mayGrow ? tr("%1 of %2 members read so far documented")
                               : tr("%1 of %2 members documented"))
                          .arg(documented)
                          .arg(total));
}

void CoverageStatus::Show() {
    setVisible(mSession != nullptr);
    const double share = mTotal == 0 ? 1.0 : static_cast<double>(mDocumented) / double(mTotal);
    mBar->setValue(static_cast<int>(share * 1000));
    const double percent = share * 100;
    mProject->setText((mSession && mSession->IsPart() ? tr("%1 % of what was read so far")
                                                      : tr("%1 % of the project"))
                          .arg(percent > 0 && percent < 10 ? QString::number(percent, 'f', 1)
                                                           : QString::number(int(percent))));
}

} // namespace paperkite
