#include "model/PageTemplateDocument.h"
#include "pagelayout/frmEditMetaSpan.h"
#include "platform/ViewTest.h"
#include "platform/qt/FormView.h"
#include "platform/qt/PropertiesListView.h"
#include "platform/qt/TreeView.h"
#include "widgets/HeaderBar.h"
#include "widgets/frmBrowseHTMLColor.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QTextEdit>

namespace paperkite {
namespace {

// The dialogs of page layouts, light, dark and with large text; set PAPERKITE_PICTURES to a folder
// to keep the pictures.
class DialogPicturesTest : public ViewTest, public testing::WithParamInterface<const char*> {
protected:
    DialogPicturesTest() {
        const std::string look = GetParam();
        mTheme.SetScheme(look == "dark" ? ColourScheme::Dark : ColourScheme::Light);
        mTheme.SetTextScale(look == "large" ? 150 : 100);
        Collection<Ref<PageTemplate>> found;
        PageTemplateDocument::OpenAll(std::string(PAPERKITE_SOURCE_DIR) + "/templates", found);
        for (const auto& known : found)
            if (known->Name == "Modern") mTemplate = known;
    }

    ~DialogPicturesTest() override {
        for (const auto& known : {mTemplate})
            if (known) known->NamespaceDefs->Release();
    }

    void Open(Form& form) {
        form.SetRunner([](Form&, FormMode) {});
        form.Show(FormMode::Modal);
        auto view = std::make_unique<FormView>(mFactory, form, nullptr);
        mDialog = view.get();
        mWindow = std::move(view);
        mWindow->show();
        mWindow->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(mWindow.get()));
        QTest::qWait(0);
    }

    QImage Keep(const char* name) { return Keep(name, *mWindow); }
    QImage Keep(const char* name, QWidget& shown) {
        const std::string look = GetParam();
        return Picture(QString("%1-%2").arg(name, look == "large" ? "text-150-light" : GetParam()),
                       shown);
    }

    void ExpectNoClippedWord() {
        for (auto* button : mWindow->findChildren<QAbstractButton*>()) {
            if (!button->isVisible() || button->text().isEmpty()) continue;
            EXPECT_GE(button->width() + 1, button->fontMetrics().horizontalAdvance(button->text()))
                << button->text().toStdString();
        }
        for (auto* label : mWindow->findChildren<QLabel*>()) {
            if (!label->isVisible() || label->wordWrap()) continue;
            EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
        }
    }

    /// An element with an attribute of each kind, each with a value.
    Ref<ElementDef> AddEveryKind() {
        auto definition = MakeRef<ElementDef>();
        definition->Name = "everykind";
        definition->Category = "Page";
        definition->Description = "An element with an attribute of each kind.";
        for (const char* type : {"list", "date", "color", "number", "boolean", "file", "text"}) {
            auto attribute = MakeRef<AttributeDef>();
            attribute->Name = type;
            attribute->AttributeType = type;
            attribute->Description = "An attribute of this kind.";
            attribute->Required = std::string(type) == "list";
            attribute->ValueSource = "values";
            attribute->Values = "red:#FF0000,blue";
            definition->AttributeDefs.Add(attribute, type);
        }
        mTemplate->Namespaces.front()->ElementDefs.Add(definition, "everykind");
        return definition;
    }

    FormView* mDialog = nullptr;
    Ref<PageTemplate> mTemplate;
};

TEST_P(DialogPicturesTest, TheBrowserOfColours) {
    frmBrowseHTMLColor form;
    form.Initialize(WebColours::FromComponents({210, 105, 30}));
    Open(form);
    const QImage first = Keep("colour");
    ExpectNoClippedWord();
    form.chxBase->UserClick(44);
    EXPECT_NE(Keep("colour-cell"), first);
    auto* box = mWindow->findChild<QComboBox*>();
    ASSERT_TRUE(box);
    box->showPopup();
    EXPECT_GE(box->view()->visualRect(box->model()->index(0, 0)).height(),
              box->fontMetrics().height() + 6);
    EXPECT_EQ(Keep("colour-list", *box->view()->window()).width(), box->view()->window()->width());
    box->hidePopup();
    form.Hide();
}

TEST_P(DialogPicturesTest, AddingAnElement) {
    ASSERT_TRUE(mTemplate);
    auto form = MakeRef<frmEditMetaSpan>();
    form->SetIsAdd(true);
    form->ctlBuilder->Initialise(mTemplate->NamespaceDefs, mTemplate);
    Open(*form);
    const QImage nothing = Keep("element-nothing");
    ExpectNoClippedWord();
    auto& tree = *mWindow->findChild<TreeView*>();
    EXPECT_EQ(QApplication::focusWidget(), &tree);
    for (const char key : std::string("if"))
        QTest::keyClick(&tree, key);
    EXPECT_EQ(mWindow->windowTitle(), "Add Element - if");
    EXPECT_NE(Keep("element-add"), nothing);
    form->Hide();
}

TEST_P(DialogPicturesTest, EditingAnElementOfEveryKind) {
    ASSERT_TRUE(mTemplate);
    const auto definition = AddEveryKind();
    auto form = MakeRef<frmEditMetaSpan>();
    const auto& builder = form->ctlBuilder;
    builder->Initialise(mTemplate->NamespaceDefs, mTemplate);
    builder->SetElement(definition);
    const auto& rows = builder->prpProperties;
    for (const auto& [name, value] :
         std::vector<std::pair<std::string, std::string>>{{"list", "#FF0000"},
                                                          {"date", "2026-12-31"},
                                                          {"color", "#D2691E"},
                                                          {"number", "many"},
                                                          {"boolean", "true"},
                                                          {"file", "parts/foot.html"},
                                                          {"text", "A text of some words"}})
        rows->Item(name)->SetValue(value);
    form->SetText("What stands between the tags");
    Open(*form);
    rows->SetSelectedItem(rows->Item("list"));
    const QImage before = Keep("element-kinds");
    ExpectNoClippedWord();
    for (const char* name : {"date", "color", "number", "file"}) {
        rows->SetSelectedItem(rows->Item(name));
        ASSERT_TRUE(rows->BeginEdit() || std::string(name) == "file");
        EXPECT_NE(Keep((std::string("element-edit-") + name).c_str()), before);
        rows->CancelEdit();
    }
    form->Hide();
}

TEST_P(DialogPicturesTest, TheHeaderBar) {
    auto bar = MakeRef<HeaderBar>("hdrElements");
    bar->SetText("Some elements in this document cannot be edited in this view");
    bar->SetPicture({"dialog-information", {}, {}});
    bar->SetHotTracking(true);
    auto* view = Show(bar, QSize(760, 36));
    view->resize(760, view->sizeHint().height());
    const QImage plain = Keep("header");
    QTest::mouseMove(view, QPoint(100, 10));
    bar->UserMouseMove(0, 0, 100, 10);
    EXPECT_NE(Keep("header-hot"), plain);
}

INSTANTIATE_TEST_SUITE_P(Looks, DialogPicturesTest, testing::Values("light", "dark", "large"),
                         [](const auto& look) { return std::string(look.param); });

} // namespace
} // namespace paperkite
