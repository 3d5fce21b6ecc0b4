#include "platform/qt/FlatStripView.h"

#include "platform/qt/ControlView.h"
#include "platform/qt/Conversions.h"

#include <QSignalBlocker>
#include <QTabBar>

namespace paperkite {

namespace {

class FlatStripView : public ControlView {
public:
    FlatStripView(const Ref<FlatStrip>& strip, QTabBar* bar)
        : ControlView(strip, bar), mStrip(strip), mBar(bar) {
        bar->setShape(QTabBar::RoundedSouth);
        bar->setDrawBase(false);
        bar->setExpanding(false);
        QObject::connect(bar, &QTabBar::currentChanged, this, [this](int index) {
            if (index >= 0) mStrip->UserClick(static_cast<std::size_t>(index) + 1);
            Show();
        });
        Tie();
    }

protected:
    void Show() override {
        const QSignalBlocker blocker(mBar);
        const int count = static_cast<int>(mStrip->Count());
        while (mBar->count() > count)
            mBar->removeTab(mBar->count() - 1);
        while (mBar->count() < count)
            mBar->addTab({});
        for (int index = 0; index < count; ++index) {
            const auto tab = mStrip->Item(static_cast<std::size_t>(index) + 1);
            mBar->setTabText(index, ToQString(tab->Caption));
            mBar->setTabToolTip(index, ToQString(tab->ToolTipText));
            if (tab == mStrip->GetSelectedTab()) mBar->setCurrentIndex(index);
        }
    }

private:
    Ref<FlatStrip> mStrip;
    QTabBar* mBar;
};

} // namespace

QWidget* MakeFlatStripView(const Ref<FlatStrip>& strip, QWidget* parent) {
    auto* bar = new QTabBar(parent);
    new FlatStripView(strip, bar);
    return bar;
}

} // namespace paperkite
