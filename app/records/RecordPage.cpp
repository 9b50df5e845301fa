#include "app/records/RecordPage.h"

#include "app/common/PageSections.h"
#include "app/common/PlainLabels.h"
#include "app/records/CustodyTable.h"
#include "app/records/PictureLabel.h"
#include "app/records/RecordTexts.h"
#include "base/Error.h"
#include "base/ErrorLog.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QStyle>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int widestIdentifier = 400;
constexpr int margin = 20, headingHeight = 76, captionWidth = 120, fieldsWidth = 380, pictureHeight = 200;
constexpr int darkBackground = 80;  // of 255; darker ones need white text
const char* const securedColor = "#DC5C1C";

QLabel* MakeTag(const ItemStatus& status, QWidget* parent) {
    auto* tag = MakeLabel(ToShown(status.caption), 12, QFont::DemiBold, parent);
    tag->setObjectName(QStringLiteral("statusTag"));
    tag->setWordWrap(false);
    tag->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    const QColor background(status.color & 0xFF, status.color >> 8 & 0xFF, status.color >> 16 & 0xFF);
    tag->setStyleSheet(QStringLiteral("background: %1; color: %2; border-radius: 2px; padding: 2px 8px;")
                           .arg(background.name(), qGray(background.rgb()) < darkBackground ? "#FFFFFF" : "#0B0F0E"));
    return tag;
}

void AddFields(QVBoxLayout& column, const std::vector<RecordField>& fields, QWidget* parent) {
    auto* grid = new QGridLayout;
    grid->setColumnMinimumWidth(0, captionWidth);
    grid->setColumnStretch(1, 1);
    grid->setVerticalSpacing(8);
    for (const RecordField& field : fields) {
        const int row = grid->rowCount();
        auto* caption = MakeLabel(QObject::tr("%1:").arg(field.caption), 14, QFont::Normal, parent);
        MakeQuiet(caption);
        grid->addWidget(caption, row, 0, Qt::AlignTop);
        auto* text = new WrappedLabel(field.text.isEmpty() ? QObject::tr("Not recorded") : field.text, 14,
                                      field.text.isEmpty() ? QFont::Normal : QFont::Medium, parent);
        text->setObjectName(QString::fromLatin1(field.name));
        text->setAccessibleName(caption->text() + " " + text->text());
        if (field.text.isEmpty()) MakeQuiet(text);
        grid->addWidget(text, row, 1);
    }
    column.addLayout(grid);
    column.addSpacing(24);
}

void AddIncidents(QVBoxLayout& column, const std::vector<RecordIncident>& incidents, QWidget* parent) {
    if (incidents.empty()) column.addWidget(MakeLabel(QObject::tr("None"), 14, QFont::Normal, parent));
    for (const RecordIncident& incident : incidents) {
        const QString number = NumberOf(incident);
        auto* label = new WrappedLabel(incident.isSecured ? QObject::tr("%1, secured").arg(number) : number, 14,
                                       incident.isSecured ? QFont::DemiBold : QFont::Medium, parent);
        label->setObjectName(QStringLiteral("incident"));
        if (incident.isSecured) {
            QPalette secured = label->palette();
            secured.setColor(QPalette::WindowText, QColor(QString::fromLatin1(securedColor)));
            label->setPalette(secured);
        }
        column.addWidget(label);
        column.addSpacing(8);
    }
}

}  // namespace

RecordPage::RecordPage(const RecordAddress& address, QWidget* parent) : QWidget(parent), m_address(address) {
    m_column = new QVBoxLayout(this);
    m_column->setContentsMargins(0, 0, 0, 0);
}

QString RecordPage::Title() const {
    const auto* record = m_answer ? std::get_if<Record>(&*m_answer) : nullptr;
    const QString identifier = record ? ToShown(record->identifier).simplified() : QString();
    return KindOf(m_address) + " " + (identifier.isEmpty() ? QString::number(m_address.number) : identifier);
}

void RecordPage::Load() {
    RecordAnswer answer;
    try {
        answer = ReadRecord(m_address);
    } catch (...) {
        const Error error = CurrentError();
        GetErrorLog().Log("quellbrook-host", error.Source(), error.Description());
        answer = RecordRefusal{"This record could not be read: " + error.Description()};
    }
    if (m_answer == answer) return;
    m_answer = std::move(answer);
    if (m_content) {
        m_content->hide();
        m_content->deleteLater();
    }
    const auto* record = std::get_if<Record>(&*m_answer);
    m_content = record ? MakeContent(*record) : MakeSentence(std::get<RecordRefusal>(*m_answer).sentence);
    m_column->addWidget(m_content);
    setFocusProxy(m_content->findChild<QAbstractScrollArea*>());
}

QWidget* RecordPage::MakeContent(const Record& record) {
    auto* content = new QWidget(this);
    auto* rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    rows->addWidget(MakeHeading(record));
    rows->addWidget(MakeRule(content));
    auto* columns = new QHBoxLayout;
    columns->setSpacing(0);
    columns->addWidget(MakeFields(record));
    columns->addWidget(MakeCustody(record), 1);
    rows->addLayout(columns, 1);
    return content;
}

QWidget* RecordPage::MakeHeading(const Record& record) {
    auto* heading = new QWidget;
    heading->setFixedHeight(headingHeight);
    auto* lines = new QVBoxLayout(heading);
    lines->setContentsMargins(margin, 10, margin, 8);
    lines->setSpacing(2);
    auto* names = new QHBoxLayout;
    names->setSpacing(8);
    const QString identifier = ToShown(record.identifier);
    auto* title = new ElidedLabel(identifier.isEmpty() ? tr("<missing ID>") : identifier, 20, QFont::DemiBold);
    title->setObjectName(QStringLiteral("title"));
    // A long description shortens itself, not the identifier.
    title->setMinimumWidth(std::min(title->sizeHint().width(), widestIdentifier));
    names->addWidget(title);
    names->addWidget(new ElidedLabel(ToShown(record.description), 20, QFont::Normal));
    names->addStretch(1);
    lines->addLayout(names);
    auto* statusLine = new QHBoxLayout;
    statusLine->setSpacing(8);
    statusLine->addWidget(MakeTag(record.status, heading));
    auto* location = new ElidedLabel(ToShown(record.location), 13, QFont::Normal);
    MakeQuiet(location);
    statusLine->addWidget(location);
    statusLine->addStretch(1);
    lines->addLayout(statusLine);
    return heading;
}

QWidget* RecordPage::MakeFields(const Record& record) {
    auto* fields = new QWidget;
    auto* column = new QVBoxLayout(fields);
    column->setContentsMargins(margin, margin, margin, margin);
    column->setSpacing(0);
    if (record.picture || !record.pictureFailure.empty()) {
        column->addWidget(MakePicture(record));
        column->addSpacing(24);
    }
    for (const RecordSection& section : SectionsOf(record)) {
        AddSection(*column, section.caption, fields);
        AddFields(*column, section.fields, fields);
    }
    AddSection(*column, tr("Related Incidents"), fields);
    AddIncidents(*column, record.incidents, fields);
    column->addStretch(1);

    auto* area = new QScrollArea;
    area->setObjectName(QStringLiteral("fields"));
    area->setAccessibleName(tr("Fields of the record"));
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setWidgetResizable(true);
    area->setFixedWidth(fieldsWidth);
    area->setWidget(fields);
    return area;
}

QLabel* RecordPage::MakePicture(const Record& record) const {
    if (record.picture) {
        const int width = fieldsWidth - 2 * margin - style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        auto* picture = new PictureLabel(*record.picture, QSize(width, pictureHeight));
        const QString identifier = ToShown(record.identifier).simplified();
        picture->setAccessibleName(tr("Picture of %1").arg(identifier.isEmpty() ? Title() : identifier));
        return picture;
    }
    auto* sentence = new WrappedLabel(ToShown(record.pictureFailure), 14, QFont::Normal);
    sentence->setObjectName(QStringLiteral("noPicture"));
    MakeQuiet(sentence);
    return sentence;
}

QWidget* RecordPage::MakeCustody(const Record& record) {
    auto* custody = new QWidget;
    auto* column = new QVBoxLayout(custody);
    column->setContentsMargins(margin, margin, margin, 0);
    column->setSpacing(0);
    AddSection(*column, tr("Chain of Custody"), custody);
    const auto addSentence = [&](const QString& sentence) {
        auto* label = MakeLabel(sentence, 14, QFont::Normal, custody);
        label->setObjectName(QStringLiteral("noCustody"));
        column->addWidget(label);
        column->addStretch(1);
    };
    if (!record.custody)
        addSentence(tr("You do not have the appropriate permissions to view chain-of-custody information."));
    else if (record.custody->empty())
        addSentence(tr("Nothing has been entered yet."));
    else
        column->addWidget(new CustodyTable(*record.custody, custody), 1);
    return custody;
}

QWidget* RecordPage::MakeSentence(const std::string& sentence) {
    auto* content = new QWidget(this);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(margin, margin, margin, margin);
    auto* label = new WrappedLabel(ToShown(sentence), 16, QFont::Normal, content);
    label->setObjectName(QStringLiteral("refusal"));
    column->addWidget(label);
    column->addStretch(1);
    return content;
}

}  // namespace quellbrook
