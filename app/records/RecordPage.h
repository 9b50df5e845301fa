#pragma once

#include "app/records/RecordReader.h"

#include <QPointer>
#include <QWidget>

#include <optional>

class QLabel;
class QVBoxLayout;

namespace quellbrook {

// The host's page of one record, to be read only: its picture, all its fields, the incidents and the whole chain of
// custody that the user may see; or a sentence that says why it can't be shown. Empty until Load.
class RecordPage : public QWidget {
    Q_OBJECT

public:
    explicit RecordPage(const RecordAddress& address, QWidget* parent = nullptr);

    const RecordAddress& Address() const { return m_address; }
    // Kind and identifier; the number while no record is shown, and for one without an identifier.
    QString Title() const;

    // Reads the record anew. Where nothing has changed the page stays as it is, scrolled as it is.
    void Load();

private:
    QWidget* MakeContent(const Record& record);
    QWidget* MakeHeading(const Record& record);
    QWidget* MakeFields(const Record& record);
    QLabel* MakePicture(const Record& record) const;  // or the sentence in its place
    QWidget* MakeCustody(const Record& record);
    QWidget* MakeSentence(const std::string& sentence);

    const RecordAddress m_address;
    std::optional<RecordAnswer> m_answer;
    QVBoxLayout* m_column;
    QPointer<QWidget> m_content;
};

}  // namespace quellbrook
