#pragma once

#include "app/records/RecordReader.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class QLabel;
class QVBoxLayout;

namespace quellbrook {

// The host's read-only page of one record: the picture, fields, incidents and chain of custody that the user may see,
// or a sentence that explains why it cannot be shown. Empty until Load.
class RecordPage : public QWidget {
    Q_OBJECT

public:
    explicit RecordPage(const RecordAddress& address, QWidget* parent = nullptr);

    const RecordAddress& Address() const { return m_address; }
    // Kind and identifier, or the number if there is no record or identifier.
    QString Title() const;

    // Reads the record again. If nothing has changed, keeps the page with its scroll positions.
    void Load();

private:
    QWidget* MakeContent(const Record& record);
    QWidget* MakeHeading(const Record& record);
    QWidget* MakeFields(const Record& record);
    QLabel* MakePicture(const Record& record) const;  // or a sentence if there is none
    QWidget* MakeCustody(const Record& record);
    QWidget* MakeSentence(const std::string& sentence);

    const RecordAddress m_address;
    std::optional<RecordAnswer> m_answer;
    QVBoxLayout* m_column;
    QPointer<QWidget> m_content;
};

}  // namespace quellbrook
