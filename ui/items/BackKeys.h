#pragma once

class QKeyEvent;

namespace quellbrook {

// Goes back to the previous view if the key is Escape or Alt+Left. Returns false for any other key.
bool GoBackByKey(const QKeyEvent& event);

}  // namespace quellbrook
