#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/ReportHeader.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QStandardItemModel>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A model whose texts cannot be read while it is broken.
class BreakableModel : public QStandardItemModel {
public:
    explicit BreakableModel(const char* failure) : m_failure(failure) { appendRow(new QStandardItem("Entry")); }
    bool broken = false;

    QVariant data(const QModelIndex& index, int role) const override {
        Check(role);
        return QStandardItemModel::data(index, role);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        Check(role);
        return QStandardItemModel::headerData(section, orientation, role);
    }

private:
    void Check(int role) const {
        if (broken && role == Qt::DisplayRole) Raise(ErrorNumber::General, "Test.Painting", m_failure);
    }

    std::string m_failure;
};

// Errors while painting are reported when the painting has ended.
class PaintingTest : public ControlsTest {
protected:
    PaintingTest() {
        m_environment->reportUnexpected = [this](const Error& error) { m_reported.push_back(error.Description()); };
    }

    void ExpectReportAfterPainting(BreakableModel& model, QWidget& painted, const char* failure) {
        Grab(painted);
        model.broken = true;
        Grab(painted);
        model.broken = false;
        EXPECT_THAT(m_reported, IsEmpty());
        ServeEvents();
        EXPECT_THAT(m_reported, ElementsAre(failure));
    }

    std::vector<std::string> m_reported;
};

TEST_F(PaintingTest, AFailingHeaderIsReportedLater) {
    BreakableModel model("No caption.");
    ReportHeader header(&m_window);
    header.setModel(&model);
    header.resize(200, 32);
    ExpectReportAfterPainting(model, *header.viewport(), "No caption.");
}

TEST_F(PaintingTest, AFailingEntryOfADropdownIsReportedLater) {
    BreakableModel model("No entry.");
    FlatDropdown dropdown(&m_window);
    auto* box = dropdown.findChild<QComboBox*>();
    box->setModel(&model);
    ShowActive(m_window);
    box->showPopup();
    ExpectReportAfterPainting(model, *box->view()->viewport(), "No entry.");
}

}  // namespace
}  // namespace quellbrook::testing
