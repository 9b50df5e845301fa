#pragma once

class QKeyEvent;
class QWidget;

namespace quellbrook {

class Link;

// Goes back to the previous view if the key is Escape or Alt+Left. Returns false for any other key.
bool GoBackByKey(const QKeyEvent& event);

// Adds the closing cross "lnkClose" to the title area of a view. It goes back to the previous view. The height is in
// pixels.
Link* AddCloseLink(QWidget* titleArea, int height);

}  // namespace quellbrook
