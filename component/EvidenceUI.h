#pragma once

class QWidget;

namespace quellbrook {

// A new EvidenceUI, hidden, owned by the parent. The control shows the explorer when it is shown for the first time,
// and keeps its views, its batch and its view history while it is hidden. Shown again, it reads the current list again.
// Create one for each run of the access gate that returned true, and delete it before the next run: its views would
// keep showing the batch that the gate has dropped. A handler of a click deletes it with deleteLater. Its Qt property
// BorderStyle (integer, default 0 for none) frames it. Error 5 without a database.
QWidget* CreateEvidenceUI(QWidget* parent);

}  // namespace quellbrook
