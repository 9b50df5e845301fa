#pragma once

#include "core/CartStore.h"
#include "ui/controls/GroupBox.h"

namespace quellbrook {

class FlatButton;
class Label;
class Line;
class Link;

// The strip above the contents: a title, a subtitle, and links for the commands that the selected location and the
// user's rights allow. If the title does not fit, the links are reduced to their icons.
class ExplorerHeading : public GroupBox {
    Q_OBJECT

public:
    explicit ExplorerHeading(QWidget* parent = nullptr);
    std::string TypeName() const override { return "ExplorerHeading"; }

    // Also clears the path.
    void SetTitle(const QString& title);
    // The tooltip and accessible description of the title.
    void SetPath(const QString& path);
    void SetSubtitle(const QString& subtitle);
    // Shows the links for the location; none for null.
    void ShowLinks(const StorageLocation* location);
    // Enables what the user has the right to. New evidence cannot be added while a batch is open. Throws if a right
    // cannot be read; it is then taken as it was before.
    void EnableByRights(const CartStore& cart);
    // Positions everything. Call it after a change of the title or the links.
    void LayoutHeading();

signals:
    void EditRequested();
    void DeleteRequested();
    void AddRequested();
    void PrintRequested();
    void AddEvidenceRequested();

protected:
    void Layout() override { LayoutHeading(); }

private:
    struct LinkGroup {
        GroupBox* group;
        Link* link;
        QString caption;
    };

    LinkGroup AddLink(const char* noun, const QString& caption, const QString& icon,
                      void (ExplorerHeading::*request)());
    void SetCompact(bool compact);
    float PlaceLinks();

    Label* m_lblTitle;
    Label* m_lblSubtitle;
    LinkGroup m_edit;
    LinkGroup m_delete;
    LinkGroup m_add;
    LinkGroup m_print;
    FlatButton* m_btnAddEvidence;
    Line* m_lnSeparator;
    bool m_mayAddEvidence = false;
};

}  // namespace quellbrook
