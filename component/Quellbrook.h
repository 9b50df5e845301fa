#pragma once

class QWidget;

namespace quellbrook {

// The component's interface for its host. Everything runs on the thread of QApplication. The host shows the Errors that
// these functions throw.
//
// The order of calls:
//   Startup                     after QApplication
//   HostServices                the database, the session and the formats
//   SetDialogParent             the main window, at each login, before the gate, and again after it
//   InitializeQuellbrook        the gate, at each login
//   CreateEvidenceUI            (component/EvidenceUI.h) only if the gate returned true
//   HostServices::Reset         after the last EvidenceUI
//   Shutdown                    before QApplication is destroyed

// Installs the component's screen, timers, keys, pictures, command runner and wait for locked databases. The rest of
// the environment, such as the error log, stays as it is at this moment. The interfaces for screen readers stay
// installed. Calls nest: the
// component ends at the Shutdown that matches the first Startup, and can then start again. Without a Startup, Shutdown
// has no effect.
void Startup();
void Shutdown();

// Applies the component's palette, fonts and style to the whole application, so that host and component look alike. May
// be called again while views and dialogs are open.
void InstallTheme(bool dark);
// Surrounds a control of the host with the component's focus ring while it has the focus. With the theme's style,
// QPushButton, QLineEdit and QComboBox have it already.
void ShowFocusRing(QWidget* control);

// The window over which the component centers its dialogs; without one, a message raises Error 91. The gate may set a
// window of its own, which it closes. The caller keeps ownership.
void SetDialogParent(QWidget* window);

// The access gate: returns whether the session's user may enter, after showing a refused user the reason. Drops the
// batch and the view history of an earlier login. First destroy the EvidenceUI of that login; its views would keep
// showing the dropped batch.
bool InitializeQuellbrook();

// The number of items in the open batch; 0 without a batch. A host asks the user before it logs out or ends with an
// open batch, since the batch is then lost. Only while an EvidenceUI exists.
int ItemsInOpenBatch();

}  // namespace quellbrook
