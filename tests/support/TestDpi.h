#pragma once

#include <windows.h>

#include <string>

// The value of an environment variable, empty when there is none.
std::string EnvironmentValue(const char* name);

// The system DPI of this process: what the environment variable VX_TEST_DPI announces, else what the system
// says. Throws when the two differ, i.e. when the tests would run at another DPI than the one that they were
// started for.
UINT TestDpi();
