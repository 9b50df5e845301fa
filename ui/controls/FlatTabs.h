#pragma once

#include "ui/controls/Control.h"

#include <vector>

class QTabBar;

namespace quellbrook {

// One page of a FlatTabs. A single child fills it.
class FlatTabPage : public Control {
    Q_OBJECT

public:
    explicit FlatTabPage(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatTabPage"; }

protected:
    void Layout() override;
};

// Captions in a row over the page of the selected one.
class FlatTabs : public Control {
    Q_OBJECT
    Q_PROPERTY(int SelectedIndex READ SelectedIndex WRITE SetSelectedIndex)

public:
    explicit FlatTabs(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatTabs"; }

    FlatTabPage* AddTab(const QString& caption);
    int Count() const { return static_cast<int>(m_pages.size()); }
    QString Caption(int index) const { return Page(index)->accessibleName(); }
    FlatTabPage* Page(int index) const { return m_pages.at(static_cast<size_t>(index)); }
    int SelectedIndex() const;
    void SetSelectedIndex(int index);  // raises error 380 outside the tabs
    QRect TabRect(int index) const;    // of its caption
    // The space left of the first tab, in twips; initially the outer margin.
    void SetIndent(float indent);
    void SetAccessibleCaption(const QString& name);
    QTabBar* Bar() const { return m_bar; }

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Select(int index);

    QTabBar* m_bar;
    std::vector<FlatTabPage*> m_pages;
    int m_indent;  // pixels
};

}  // namespace quellbrook
