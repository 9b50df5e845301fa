#pragma once

class QWidget;

namespace quellbrook {

// A new EvidenceUI, hidden, owned by the parent. The control shows the explorer when it is shown for the first time,
// and keeps its views, its batch and its view history while it is hidden. Create one for each run of the access gate
// that returned true, and delete it before the next run: its views would keep showing the batch that the gate has
// dropped. Its Qt property BorderStyle (integer, default 0) frames it.
QWidget* CreateEvidenceUI(QWidget* parent);

}  // namespace quellbrook
