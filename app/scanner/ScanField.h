#pragma once

#include "app/scanner/ScanDiagnosis.h"
#include "base/Timer.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace quellbrook {

// Takes every key while it has the focus, so that no shortcut of the window hears what a scanner sends. Keys that come
// close together are one reading, which ends when none has come for BurstPause. Tab, Shift+Tab and Esc by themselves
// leave the field; within a reading they belong to it.
class ScanField : public QWidget {
    Q_OBJECT

public:
    static constexpr int BurstPause = 100;       // milliseconds
    static constexpr size_t LongestBurst = 200;  // keys; more are not kept

    explicit ScanField(QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    // At least one key.
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
