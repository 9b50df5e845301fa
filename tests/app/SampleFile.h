#pragma once

// The sample department for the tests of the host, and ScratchDirectory for copies of it.
#include "app/Department.h"
#include "tests/demo/sample/SampleFile.h"
