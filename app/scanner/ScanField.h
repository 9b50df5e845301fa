#pragma once

#include "app/scanner/ScanDiagnosis.h"
#include "base/Timer.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace quellbrook {

// Receives every key while it has the focus, so that a scan does not trigger shortcuts. Keys in close succession form
// one reading, which ends after BurstPause without a key. A single Tab, Shift+Tab or Esc leaves the field.
class ScanField : public QWidget {
    Q_OBJECT

public:
    static constexpr int BurstPause = 100;       // milliseconds
    static constexpr size_t LongestBurst = 200;  // keys; further ones are dropped

    explicit ScanField(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // Emitted with at least one key.
    void Read(const std::vector<quellbrook::ScannedKey>& keys);

protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void TakeKey(const QKeyEvent& event);
    bool Leave(const QKeyEvent& event);
    void EndBurst();

    std::unique_ptr<Timer> m_timer;
    std::vector<ScannedKey> m_burst;
};

}  // namespace quellbrook
