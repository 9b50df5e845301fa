#pragma once

#include "tests/support/RecordingErrorLog.h"

#include <QString>
#include <QStringList>

namespace quellbrook::testing {

// The main function of all view tests: an offscreen application in the light theme. A test fails on any Qt warning and
// any entry of the error log that it did not announce, and on an announced one that is missing.

// Expects one Qt warning that contains this text, before the end of the test.
void AnnounceWarning(const QString& part);

// The debug messages of the test so far, oldest first, and forgets them.
QStringList TakeDebugMessages();

// The log of each test, unless a fixture installs another.
RecordingErrorLog& TestErrorLog();

}  // namespace quellbrook::testing
