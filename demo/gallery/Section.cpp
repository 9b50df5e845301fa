#include "demo/gallery/Section.h"

#include "demo/gallery/Cell.h"
#include "demo/gallery/FlowLayout.h"
#include "demo/gallery/Stage.h"
#include "ui/controls/Label.h"
#include "ui/platform/Twips.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quellbrook::gallery {

namespace {

constexpr int HeadingWidth = 144;
constexpr int StateWidth = 168;
constexpr int CellGap = 8, LineGap = 12, RowGap = 16;

Label* MakeLabel(const QString& text, Theme::Type type, Theme::Color color, QWidget* parent) {
    auto* label = new Label(parent);
    label->SetType(type);
    label->SetForeColor(color);
    label->SetCaption(text);
    return label;
}

// Aligned with the top of the controls beside it.
QWidget* MakeHeading(const QString& control, const QString& note) {
    auto* heading = new QWidget;
    auto* name = MakeLabel(control, Theme::Type::BodySemiBold, Theme::Color::Text, heading);
    name->Move(0, ToTwips(Stage::Margin));
    float bottom = name->Bottom();
    if (!note.isEmpty()) {
        auto* detail = MakeLabel(note, Theme::Type::Hint, Theme::Color::GrayText, heading);
        detail->SetWordWrap(true);
        detail->Move(0, bottom, ToTwips(HeadingWidth), detail->Height());
        bottom = detail->Bottom();
    }
    heading->setFixedSize(HeadingWidth, ToPixels(bottom));
    return heading;
}

}  // namespace

Section::Section(const QString& title, const QString& sentence, QWidget* parent)
    : QWidget(parent), m_rows(new QVBoxLayout(this)) {
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(RowGap);
    auto* heading = new QVBoxLayout;
    heading->setSpacing(0);
    heading->addWidget(MakeLabel(title, Theme::Type::Title, Theme::Color::Text, this));
    heading->addWidget(MakeLabel(sentence, Theme::Type::Subtitle, Theme::Color::GrayText, this));
    m_rows->addLayout(heading);
}

QWidget* Section::AddRow(const QString& control, const QString& note) {
    auto* row = new QHBoxLayout;
    row->setSpacing(CellGap);
    row->addWidget(MakeHeading(control, note), 0, Qt::AlignTop);
    auto* cells = new QWidget(this);
    cells->setLayout(new FlowLayout(CellGap, LineGap));
    row->addWidget(cells, 1);
    m_rows->addLayout(row);
    return cells;
}

void Section::AddStates(const Specimen& specimen) {
    QWidget* cells = AddRow(specimen.control, specimen.variant);
    for (const State state : specimen.states)
        cells->layout()->addWidget(new Cell(specimen, state, QString(), StateWidth, cells));
}

void Section::AddVariants(const QString& control, const QString& note, const std::vector<Specimen>& specimens) {
    QWidget* cells = AddRow(control, note);
    for (const Specimen& specimen : specimens)
        for (const State state : specimen.states)
            cells->layout()->addWidget(
                new Cell(specimen, state, state == State::Normal ? specimen.variant : QString(), 0, cells));
}

void Section::AddWidgets(const std::vector<QWidget*>& widgets) {
    auto* flow = new FlowLayout(LineGap, RowGap);
    for (QWidget* widget : widgets) flow->addWidget(widget);
    m_rows->addLayout(flow);
}

}  // namespace quellbrook::gallery
