#pragma once

#include "ui/controls/Control.h"

#include <vector>

namespace quellbrook {

// One page of a FlatTabs.
// Who asks what:
// - StoredItemView: an inner size for "propertyDetails" and "tracking"; members named "tabs_Page".
// - EvidenceUI: a place for a view that is not on show.
class FlatTabPage : public Control {
    Q_OBJECT

public:
    explicit FlatTabPage(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatTabPage"; }

protected:
    void Layout() override;  // lets a lone child fill the page
};

// Captions in a row over the page of the selected one.
// Who asks what:
// - StoredItemView: SelectedIndex set at each item, also to the one it has; captions, SetIndent.
// - EvidenceUI: pages that park views; never shown itself.
class FlatTabs : public Control {
    Q_OBJECT
    Q_PROPERTY(int SelectedIndex READ SelectedIndex WRITE SetSelectedIndex)

public:
    explicit FlatTabs(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatTabs"; }

    FlatTabPage* AddTab(const QString& caption);
    int Count() const { return static_cast<int>(m_pages.size()); }
    QString Caption(int index) const;
    FlatTabPage* Page(int index) const { return m_pages.at(static_cast<size_t>(index)); }
    int SelectedIndex() const { return m_selected; }
    void SetSelectedIndex(int index);  // Error 380 outside the tabs
    QRect TabRect(int index) const;    // where its caption takes clicks
    // The room left of the first tab, in twips; the outer margin at first.
    void SetIndent(float indent);

signals:
    void SelectionChanged(int index);

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int TabAt(const QPoint& at) const;

    std::vector<QString> m_captions;
    std::vector<FlatTabPage*> m_pages;
    int m_selected = 0;
    int m_hovered = -1;
    int m_indent;  // pixels
};

}  // namespace quellbrook
