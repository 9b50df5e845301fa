#pragma once

#include "app/scanner/ScanDiagnosis.h"

#include <QWidget>

class QLabel;
class QVBoxLayout;

namespace quellbrook {

class ScanField;

// "Test Your Scanner": the test label on the screen, the field to scan it into, and the result of the last reading.
class ScannerPanel : public QWidget {
    Q_OBJECT

public:
    explicit ScannerPanel(QWidget* parent = nullptr);

    // The field that gets the focus for the panel.
    ScanField* Field() const { return m_field; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void AddReading(QVBoxLayout& column);
    void ShowReading(const std::vector<ScannedKey>& keys);

    ScanField* m_field;
    QWidget* m_result;
    QLabel* m_verdict = nullptr;
    ScanVerdict m_lastVerdict = ScanVerdict::TypedByHand;
    QLabel* m_reading;
    QLabel* m_meaning;
    QLabel* m_sentences;
};

}  // namespace quellbrook
