#include "data/BarcodeText.h"
#include "tests/support/FakeSession.h"
#include "tests/support/LabelServices.h"
#include "tests/ui/explorer/ExplorerWindowTest.h"
#include "ui/common/Dialogs.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/Link.h"
#include "ui/locations/LocationEditor.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// The links and the button beside the title.
class ExplorerHeadingTest : public ExplorerWindowTest {
protected:
    ~ExplorerHeadingTest() override { GetDialogs().SetParent(nullptr); }

    void ShowShelf() {
        Show(m_shelf);
        GetDialogs().SetParent(std::make_shared<WindowReference>(m_window.get()));
    }
    std::vector<std::string> Links() const {
        std::vector<std::string> names;
        for (const char* name : {"EditLocation", "DeleteLocation", "AddLocation", "PrintLocationBarcode"})
            if (Find<Control>(*m_explorer, ("grp" + std::string(name)).c_str())->IsShown()) names.emplace_back(name);
        return names;
    }
    Link* LinkNamed(const char* name) const { return Find<Link>(*m_explorer, name); }
    FlatButton* AddEvidence() const { return Find<FlatButton>(*m_explorer, "btnAddEvidence"); }
    QRect RectOf(const char* name) const {
        const QWidget* control = Find(*m_explorer, name);
        return QRect(control->mapTo(m_explorer, QPoint(0, 0)), control->size());
    }
    void Revoke(const PermissionDefinition& right) { m_session->revoked.insert({right.ModuleKey, right.Value}); }

    // Presses the button of the dialog that opens next.
    void AnswerDialog(const char* button) {
        QTimer::singleShot(0, qApp, [this, button] {
            auto* form = qobject_cast<frmAddEditLocation*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            m_dialogs.push_back(form->windowTitle().toStdString());
            m_editedNames.push_back(Find<FlatTextbox>(*form, "txtName")->Text().toStdString());
            Find<FlatButton>(*form, button)->Click();
        });
    }

    std::vector<std::string> m_dialogs;
    std::vector<std::string> m_editedNames;
};

TEST_F(ExplorerHeadingTest, ALocationCanBeEditedDeletedAndPrinted) {
    ShowShelf();
    EXPECT_THAT(Links(), ElementsAre("EditLocation", "DeleteLocation", "PrintLocationBarcode"));
    for (const auto& [name, caption] :
         {std::pair("lnkEditLocation", "Edit"), std::pair("lnkDeleteLocation", "Delete"),
          std::pair("lnkAddLocation", "Create Location"), std::pair("lnkPrintLocationBarcode", "Print Location Label")})
        EXPECT_EQ(Find<Link>(*m_explorer, name)->Caption(), caption);
    EXPECT_EQ(Find<FlatButton>(*m_explorer, "btnAddEvidence")->Caption(), "Add Evidence");
}

TEST_F(ExplorerHeadingTest, ARootTakesNewLocations) {
    Show();
    EXPECT_THAT(Links(), ElementsAre("AddLocation"));
}

TEST_F(ExplorerHeadingTest, WithoutALocationThereAreNoLinks) {
    Show();
    m_explorer->SetSelectedLocation(nullptr);
    EXPECT_THAT(Links(), IsEmpty());
}

TEST_F(ExplorerHeadingTest, EachLinkNeedsItsRight) {
    const PermissionsStatic& rights = GetPermissions();
    Revoke(rights.EDIT_STORAGE_LOCATIONS());
    ShowShelf();
    EXPECT_THAT(Links(), ElementsAre("DeleteLocation", "PrintLocationBarcode"));
    EXPECT_FALSE(LinkNamed("lnkEditLocation")->isEnabled());
    Revoke(rights.DELETE_STORAGE_LOCATIONS());
    ShowShelf();
    EXPECT_THAT(Links(), ElementsAre("PrintLocationBarcode"));
    EXPECT_FALSE(LinkNamed("lnkDeleteLocation")->isEnabled());
    Revoke(rights.PRINT_BARCODE_LABELS());
    ShowShelf();
    EXPECT_THAT(Links(), IsEmpty());
    Show();
    EXPECT_THAT(Links(), ElementsAre("AddLocation"));
    Revoke(rights.ADD_STORAGE_LOCATIONS());
    Show();
    EXPECT_THAT(Links(), IsEmpty());
    EXPECT_FALSE(LinkNamed("lnkAddLocation")->isEnabled());
}

TEST_F(ExplorerHeadingTest, EvidenceIsAddedInItsView) {
    ShowShelf();
    EXPECT_TRUE(AddEvidence()->isEnabled());
    AddEvidence()->Click();
    EXPECT_EQ(GetStores().View->ViewName(), "submitNewEvidence");
    EXPECT_EQ(GetStores().View->ViewParameters(), nullptr);
}

TEST_F(ExplorerHeadingTest, NoEvidenceIsAddedWhileABatchIsOpen) {
    ShowShelf();
    ClickRow("E-1");
    GetActions().BeginTransaction(TransactionType::Move, m_explorer->GetSelectedObjects());
    EXPECT_FALSE(AddEvidence()->isEnabled());
    m_explorer->hide();
    m_explorer->show();
    EXPECT_FALSE(AddEvidence()->isEnabled()) << "after another view was shown";
    GetActions().CancelTransaction();
    EXPECT_TRUE(AddEvidence()->isEnabled());
}

TEST_F(ExplorerHeadingTest, AddingEvidenceNeedsTheRight) {
    Revoke(GetPermissions().APPEND_CHAIN_OF_CUSTODY());
    ShowShelf();
    EXPECT_FALSE(AddEvidence()->isEnabled());
    GetActions().CancelTransaction();
    EXPECT_FALSE(AddEvidence()->isEnabled());
}

TEST_F(ExplorerHeadingTest, EveryLinkHasAnIcon) {
    Show();
    EXPECT_EQ(LinkNamed("lnkEditLocation")->IconName(), "edit");
    EXPECT_EQ(LinkNamed("lnkDeleteLocation")->IconName(), "delete");
    EXPECT_EQ(LinkNamed("lnkAddLocation")->IconName(), "add");
    EXPECT_EQ(LinkNamed("lnkPrintLocationBarcode")->IconName(), "print");
}

TEST_F(ExplorerHeadingTest, TheLinksMeanTheLocationOfTheHeadingNotTheSelectedRow) {
    ShowShelf();
    ClickRow("Bin 1");
    m_screen.AnswerNext(MessageAnswer::No);
    LinkNamed("lnkDeleteLocation")->Click();
    const auto messages = m_screen.TakeMessages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0].prompt, "Are you sure you want to delete this location ('Shelf A')?");
    AnswerDialog("btnCancel");
    LinkNamed("lnkEditLocation")->Click();
    EXPECT_THAT(m_editedNames, ElementsAre("Shelf A"));
}

TEST_F(ExplorerHeadingTest, EditAndCreateOpenTheDialog) {
    ShowShelf();
    AnswerDialog("btnCancel");
    LinkNamed("lnkEditLocation")->Click();
    m_explorer->SetSelectedLocation(Root(StorageLocationTypes::Internal));
    AnswerDialog("btnCancel");
    LinkNamed("lnkAddLocation")->Click();
    EXPECT_THAT(m_dialogs, ElementsAre("Edit Storage Location", "Add New Storage Location"));
}

TEST_F(ExplorerHeadingTest, ASavedEditIsShownInTheTreeAndTheHeading) {
    ShowShelf();
    QTimer::singleShot(0, qApp, [] {
        auto* form = qobject_cast<frmAddEditLocation*>(QApplication::activeModalWidget());
        ASSERT_NE(form, nullptr);
        Find<FlatTextbox>(*form, "txtName")->SetText("Rack");
        Find<FlatButton>(*form, "btnSave")->Click();
    });
    LinkNamed("lnkEditLocation")->Click();
    EXPECT_EQ(Title(), "Rack");
    ASSERT_TRUE(m_widget->currentItem());
    EXPECT_EQ(m_widget->currentItem()->text(0), "Rack");
    EXPECT_EQ(m_view->Location()->Name(), "Rack");
}

TEST_F(ExplorerHeadingTest, TheExplorerMayGoBehindADialogThatALinkHasOpened) {
    const auto pressAndSave = [this](const char* link) {
        QTimer::singleShot(0, qApp, [this, link] {
            auto* form = qobject_cast<frmAddEditLocation*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            delete m_explorer;
            Find<FlatTextbox>(*form, "txtName")->SetText(link);
            Find<FlatButton>(*form, "btnSave")->Click();
            form->close();
        });
        const QPointer<EvidenceExplorer> explorer(m_explorer);
        Press(LinkNamed(link), Qt::Key_Return);
        EXPECT_EQ(explorer, nullptr) << link;
    };
    ShowShelf();
    pressAndSave("lnkEditLocation");
    EXPECT_EQ(LocationOf(m_shelf)->Name(), "lnkEditLocation");
    ShowShelf();
    m_explorer->SetSelectedLocation(Root(StorageLocationTypes::Internal));
    pressAndSave("lnkAddLocation");
    ShowShelf();
    m_screen.AnswerNext(MessageAnswer::Yes);
    m_screen.WhileMessageOpen = [this](const auto&) { delete m_explorer; };
    const QPointer<EvidenceExplorer> explorer(m_explorer);
    Click(LinkNamed("lnkDeleteLocation"));
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_EQ(explorer, nullptr);
    EXPECT_NE(LocationOf(m_shelf), nullptr);
}

TEST_F(ExplorerHeadingTest, TheSelectedLocationIsDeletedAfterAQuestion) {
    Show(m_empty);
    m_screen.AnswerNext(MessageAnswer::Yes);
    LinkNamed("lnkDeleteLocation")->Click();
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Are you sure you want to delete this location ('Empty Shelf')?", 36, "Are you sure?"));
    EXPECT_EQ(LocationOf(m_empty), nullptr);
    EXPECT_EQ(Title(), "Sign-In Locations");
}

TEST_F(ExplorerHeadingTest, AfterACreationTheFocusIsInTheTree) {
    Show();
    GetDialogs().SetParent(std::make_shared<WindowReference>(m_window.get()));
    LinkNamed("lnkAddLocation")->setFocus();
    QTimer::singleShot(0, qApp, [] {
        auto* form = qobject_cast<frmAddEditLocation*>(QApplication::activeModalWidget());
        ASSERT_NE(form, nullptr);
        Find<FlatTextbox>(*form, "txtName")->SetText("Crate");
        Find<FlatButton>(*form, "btnSave")->Click();
    });
    LinkNamed("lnkAddLocation")->Click();
    EXPECT_EQ(Title(), "Crate");
    EXPECT_EQ(m_window->focusWidget(), m_widget) << m_window->focusWidget()->objectName().toStdString();
}

TEST_F(ExplorerHeadingTest, TheLocationOfTheQuestionIsDeletedEvenIfAnotherOneIsSelectedMeanwhile) {
    Show(m_empty);
    m_screen.AnswerNext(MessageAnswer::Yes);
    m_screen.WhileMessageOpen = [this](const auto&) { m_explorer->SetSelectedLocation(LocationOf(m_bin)); };
    LinkNamed("lnkDeleteLocation")->Click();
    m_screen.TakeMessages();
    EXPECT_EQ(LocationOf(m_empty), nullptr);
    EXPECT_NE(LocationOf(m_bin), nullptr);
}

TEST_F(ExplorerHeadingTest, AfterADeletionByKeyTheFocusIsInTheTreeOrTheList) {
    Show(m_empty);
    LinkNamed("lnkDeleteLocation")->setFocus();
    m_screen.AnswerNext(MessageAnswer::Yes);
    Press(LinkNamed("lnkDeleteLocation"), Qt::Key_Return);
    m_screen.TakeMessages();
    EXPECT_EQ(LocationOf(m_empty), nullptr);
    EXPECT_TRUE(m_list->Tree()->hasFocus() || m_widget->hasFocus());
}

TEST_F(ExplorerHeadingTest, TheLabelOfTheSelectedLocationIsPrinted) {
    LabelServices labels;
    ShowShelf();
    ClickRow("E-1");
    LinkNamed("lnkPrintLocationBarcode")->Click();
    ASSERT_EQ(labels.printer->labels.size(), 1u);
    EXPECT_EQ(labels.printer->labels[0].barcodes.at(0).text, MakeBarcodeText("L", m_shelf));
}

TEST_F(ExplorerHeadingTest, AFailureToPrintTheLabelIsReported) {
    LabelServices labels;
    labels.printer->refusal = "Out of labels.";
    ShowShelf();
    Click(LinkNamed("lnkPrintLocationBarcode"));
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Error printing barcode label for location 'Shelf A': Out of labels.", 16, "Error"));
}

TEST_F(ExplorerHeadingTest, TheFullPathIsTheTooltipAndTheDescriptionOfTheTitle) {
    Show(m_bin);
    const auto* title = Find<Label>(*m_explorer, "lblTitle");
    EXPECT_EQ(title->accessibleDescription(), "Shelf A > Bin 1");
    EXPECT_TRUE(title->toolTip().contains("Shelf A &gt; Bin 1")) << title->toolTip().toStdString();
    m_explorer->SetSelectedLocation(Root(StorageLocationTypes::External));
    EXPECT_EQ(title->accessibleDescription(), "");
    EXPECT_EQ(title->toolTip(), "");
}

TEST_F(ExplorerHeadingTest, LinksFollowTheTitleAndTheButtonIsAtTheRight) {
    ShowShelf();
    for (const int width : {1280, 1920}) {
        m_window->resize(width, 760);
        m_explorer->resize(width, 760);
        EXPECT_EQ(RectOf("btnAddEvidence").right() + 1, width - 12);
        EXPECT_EQ(RectOf("btnAddEvidence").top(), 8);
        EXPECT_EQ(RectOf("grpEditLocation").left(), RectOf("lblTitle").right() + 1 + 20);
        EXPECT_EQ(RectOf("grpEditLocation").bottom(), RectOf("lblTitle").bottom());
        EXPECT_EQ(RectOf("grpDeleteLocation").left(), RectOf("grpEditLocation").right() + 1 + 4);
        EXPECT_EQ(RectOf("grpDeleteLocation").top(), RectOf("grpEditLocation").top());
        EXPECT_EQ(RectOf("grpPrintLocationBarcode").right() + 1, RectOf("btnAddEvidence").left() - 4);
        EXPECT_EQ(RectOf("grpPrintLocationBarcode").top(), RectOf("grpDeleteLocation").top());
        EXPECT_EQ(RectOf("grpAddLocation").topLeft(), RectOf("grpEditLocation").topLeft());
    }
    const int before = RectOf("grpEditLocation").left();
    m_explorer->SetSelectedLocation(LocationOf(m_empty));
    EXPECT_GT(RectOf("grpEditLocation").left(), before);
}

TEST_F(ExplorerHeadingTest, DeleteAloneLeavesTheOtherLinksFree) {
    Revoke(GetPermissions().EDIT_STORAGE_LOCATIONS());
    Show(AddLocation(std::string(300, 'W')));
    ASSERT_THAT(Links(), ElementsAre("DeleteLocation", "PrintLocationBarcode"));
    EXPECT_LT(RectOf("grpDeleteLocation").right(), RectOf("grpPrintLocationBarcode").left());
}

TEST_F(ExplorerHeadingTest, InANarrowWindowTheLinksAreIcons) {
    ShowShelf();
    m_explorer->SetSelectedLocation(LocationOf(AddLocation("Refrigerated Storage, Annex")));
    m_window->resize(800, 490);
    m_explorer->resize(800, 490);
    EXPECT_EQ(LinkNamed("lnkEditLocation")->Caption(), "");
    EXPECT_EQ(LinkNamed("lnkEditLocation")->toolTip(), "Edit");
    EXPECT_GE(LinkNamed("lnkEditLocation")->width(), 18);
    EXPECT_EQ(LinkNamed("lnkPrintLocationBarcode")->accessibleName(), "Print Location Label");
    EXPECT_GT(RectOf("lblTitle").width(), 150);
    EXPECT_LT(RectOf("grpDeleteLocation").right(), RectOf("grpPrintLocationBarcode").left());
    m_window->resize(1280, 760);
    m_explorer->resize(1280, 760);
    EXPECT_EQ(LinkNamed("lnkEditLocation")->Caption(), "Edit");
    EXPECT_EQ(LinkNamed("lnkEditLocation")->toolTip(), "");
}

}  // namespace
}  // namespace quellbrook::testing
