#pragma once

#include <QObject>

class QMenu;

namespace quellbrook {

// While it exists, a letter or digit highlights the next usable entry of the menu, or of its submenus, that begins with
// it.
class FirstLetterKeys : public QObject {
public:
    explicit FirstLetterKeys(QMenu& menu);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quellbrook
