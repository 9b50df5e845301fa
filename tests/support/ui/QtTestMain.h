#pragma once

#include "tests/support/RecordingErrorLog.h"

#include <QString>

namespace quellbrook::testing {

// The main of every test of views: an offscreen application in our light theme. A test fails on any warning of the
// toolkit and on any entry of the error log that it did not announce, and on an announced one that did not come.

// One warning of the toolkit that holds this text, at any time until the end of the test.
void AnnounceWarning(const QString& part);

// The log that each test starts with, where no fixture has installed another.
RecordingErrorLog& TestErrorLog();

}  // namespace quellbrook::testing
