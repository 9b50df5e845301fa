#include "component/Labels.h"
#include "tests/support/LabelServices.h"
#include "tests/support/ModelTest.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class LabelsTest : public ModelTest {
protected:
    LabelServices m_labels;
};

TEST_F(LabelsTest, TheTestLabelSaysWhatItIsInEveryFieldOfTheEvidenceTemplate) {
    MakeTestLabel().Print();
    ASSERT_EQ(m_labels.printer->labels.size(), 1u);
    const FilledLabel& label = m_labels.printer->labels[0];
    EXPECT_EQ(ValueAt(label, 0), "\x02P0000000000\x03");
    EXPECT_EQ(ValueAt(label, 10), "TEST");
    EXPECT_EQ(ValueAt(label, 20), "Test label");
    EXPECT_EQ(ValueAt(label, 30), "For testing a printer and a scanner. No item has this number.");
    EXPECT_EQ(ValueAt(label, 40), "Harbor Police");
}

}  // namespace
}  // namespace quellbrook::testing
