#pragma once

#include "PairedRounds.h"

/// Writes whether both ways of a pair make the same calls of the platform in the same order, and the first
/// one that differs.
bool ReportCalls(const Pair& pair);
