#pragma once

#include "app/records/RecordReader.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class QLabel;
class QVBoxLayout;

namespace quellbrook {

// The host's read-only page of one record: picture, fields, incidents and chain of custody as far as the user may see
// them, or a sentence that explains why it cannot be shown. Empty until Load.
class RecordPage : public QWidget {
    Q_OBJECT

public:
    explicit RecordPage(const RecordAddress& address, QWidget* parent = nullptr);

    const RecordAddress& Address() const { return m_address; }
    // Kind and identifier, or the number without a record or an identifier.
    QString Title() const;

    // Reads the record again. The page, with its scroll positions, stays if nothing has changed.
    void Load();

private:
    QWidget* MakeContent(const Record& record);
    QWidget* MakeHeading(const Record& record);
    QWidget* MakeFields(const Record& record);
    QLabel* MakePicture(const Record& record) const;  // or a sentence that explains its absence
    QWidget* MakeCustody(const Record& record);
    QWidget* MakeSentence(const std::string& sentence);

    const RecordAddress m_address;
    std::optional<RecordAnswer> m_answer;
    QVBoxLayout* m_column;
    QPointer<QWidget> m_content;
};

}  // namespace quellbrook
