#pragma once

#include "Growth.h"
#include "OwnCost.h"
#include "PairedRounds.h"

#include <functional>

/// Takes a pair while the objects that it works on live.
using Visit = std::function<void(const Pair&)>;
using VisitGrowth = std::function<void(const Growth&)>;
using VisitOwnCost = std::function<void(const OwnCost&)>;

/// PNG pictures, strips and icons. GDI+ and COM have to be started.
void VisitPictureRows(const Visit& visit);

/// Layout, scrolling, DPI queries, fonts and list columns.
void VisitWindowRows(const Visit& visit);

/// How long the library takes to load. It is not for comparing calls: both ways make the same one.
void VisitLoadRow(const Visit& visit);

/// What takes more time for more of it. GDI+ has to be started.
void VisitGrowthRows(const VisitGrowth& visit);

/// What is left without the platform. GDI+ has to be started.
void VisitOwnCostRows(const VisitOwnCost& visit);
