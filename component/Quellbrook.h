#pragma once

class QWidget;

namespace quellbrook {

// The component as a host sees it; nothing below it needs to be known. Everything runs on the thread of QApplication.
//
// The host sets its database, session and formats with HostServices, then:
//   Startup                     after QApplication
//   SetDialogParent             its main window, at each login, before the gate
//   InitializeQuellbrook        the gate, at each login
//   CreateEvidenceUI            only where the gate answered true
//   Shutdown                    after the last EvidenceUI, before QApplication goes
// An Error that a function raises is the host's to show.

// Installs the component's screen, timers, keys and command runner, and keeps the error log in use. Calls nest: the
// component ends at the Shutdown that matches the first Startup, and can then start again. Without a Startup, Shutdown
// has no effect.
void Startup();
void Shutdown();

// Palette, fonts and style of the component for the whole application, so that host and component look alike.
void InstallTheme(bool dark);

// The window over which the component centres its dialogs. The caller keeps ownership.
void SetDialogParent(QWidget* window);

// The access gate: whether the user of the session may enter. A user who may not has been told why. Drops what an
// earlier login has left: the batch, the way back.
bool InitializeQuellbrook();

// A new EvidenceUI, hidden, owned by the parent. Its Qt property BorderStyle (integer, 0 at first) frames it.
QWidget* CreateEvidenceUI(QWidget* parent);

}  // namespace quellbrook
