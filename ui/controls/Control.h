#pragma once

#include <QString>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

// The edge of the parent that a control is docked to.
enum class Alignment { None = 0, Top = 1, Bottom = 2 };

// Base class of every control and view. Geometry is stored in twips as floats and rounded only for the widget geometry;
// a control that Qt has moved reports its new position. The name of a control is its objectName.
class Control : public QWidget {
    Q_OBJECT
    Q_PROPERTY(float Left READ Left WRITE SetLeft)
    Q_PROPERTY(float Top READ Top WRITE SetTop)
    Q_PROPERTY(float Width READ Width WRITE SetWidth)
    Q_PROPERTY(float Height READ Height WRITE SetHeight)
    Q_PROPERTY(QString Tag READ Tag WRITE SetTag)
    Q_PROPERTY(int Index READ Index WRITE SetIndex)
    Q_PROPERTY(int TabIndex READ TabIndex WRITE SetTabIndex)

public:
    explicit Control(QWidget* parent = nullptr);
    ~Control() override;

    // The class name in error messages.
    virtual std::string TypeName() const = 0;
    std::string Name() const;

    float Left() const;
    float Top() const;
    float Width() const;
    float Height() const;
    void SetLeft(float twips);
    void SetTop(float twips);
    void SetWidth(float twips);
    void SetHeight(float twips);
    void Move(float left, float top);
    void Move(float left, float top, float width, float height);
    float Right() const { return Left() + Width(); }
    float Bottom() const { return Top() + Height(); }
    // Inner size; equals the size except for controls with a frame.
    virtual float ClientWidth() const { return Width(); }
    virtual float ClientHeight() const { return Height(); }

    const QString& Tag() const { return m_tag; }
    void SetTag(const QString& tag) { m_tag = tag; }

    // Position in a control array, or -1.
    int Index() const { return m_index; }
    void SetIndex(int index) { m_index = index; }

    // 0 puts the control first in its parent's tab order. Virtual, so that a view can reject it.
    int TabIndex() const { return m_tabIndex; }
    virtual void SetTabIndex(int index);

    // A docked control keeps its height and gets its parent's width. A parent that is a Control updates its layout when
    // the docked control changes its height, appears or disappears. Docked controls stack in the order of their
    // creation; hidden ones are skipped.
    Alignment Align() const { return m_align; }
    void SetAlign(Alignment align);
    // An overlaying docked control stacks on those created before it and covers what else is there: it does not move
    // those created later.
    void SetOverlaying(bool overlaying);

    // The QAccessible::Role of the control. 0, the default, selects the role of its class. A control with a property
    // "Focused" is reported as selected and focused while that is true.
    int AccessibleRole() const { return m_accessibleRole; }
    void SetAccessibleRole(int role) { m_accessibleRole = role; }

    // Whether the control itself is shown, even if a parent is hidden.
    bool IsShown() const { return !isHidden(); }

protected:
    // Positions the children. Runs after every change of size; errors are ignored.
    virtual void Layout() {}
    void LayoutDockedChildren();
    // Positions docked children, then runs Layout(), as a resize event does.
    void RunLayout();
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct Geometry;
    void Apply();
    void TakeOver() const;
    void OnResized();
    void LayoutParent();

    std::unique_ptr<Geometry> m_geometry;
    QString m_tag;
    uint64_t m_serial;
    int m_index = -1;
    int m_tabIndex = -1;
    int m_accessibleRole = 0;
    Alignment m_align = Alignment::None;
    bool m_overlaying = false;
    bool m_docking = false;
};

// Adds the next member of a control array. The members share a name and carry their index; DescribeControl prints them
// as "button(1)".
template <typename T>
T* LoadMember(std::vector<T*>& members, QWidget* parent) {
    auto* member = new T(parent);
    member->setObjectName(members.empty() ? QString() : members.front()->objectName());
    member->SetIndex(static_cast<int>(members.size()));
    members.push_back(member);
    return member;
}

}  // namespace quellbrook
