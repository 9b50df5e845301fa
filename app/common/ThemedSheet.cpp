#include "app/common/ThemedSheet.h"

#include <QApplication>
#include <QEvent>
#include <QPalette>
#include <QWidget>

#include <utility>

namespace quellbrook {

namespace {

class ThemedSheet : public QObject {
public:
    ThemedSheet(QWidget* widget, QString sheet) : QObject(widget), m_widget(widget), m_sheet(std::move(sheet)) {
        Apply();
        widget->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange) Apply();
        return false;
    }

private:
    void Apply() {
        // A style sheet changes the palette of its widget.
        if (m_isApplying) return;
        m_isApplying = true;
        QString sheet = m_sheet;
        const QColor gray = QApplication::palette().color(QPalette::Disabled, QPalette::WindowText);
        m_widget->setStyleSheet(sheet.replace(QLatin1String("%1"), gray.name()));
        m_isApplying = false;
    }

    QWidget* m_widget;
    QString m_sheet;
    bool m_isApplying = false;
};

}  // namespace

void SetThemedSheet(QWidget* widget, const QString& sheet) {
    // Otherwise, a change of the palette does not reach widgets with style sheets.
    QCoreApplication::setAttribute(Qt::AA_UseStyleSheetPropagationInWidgetStyles);
    new ThemedSheet(widget, sheet);
}

}  // namespace quellbrook
