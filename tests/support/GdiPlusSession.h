#pragma once

#include <windows.h>

#include <objidl.h>

#include <algorithm>

// The GDI+ headers use both without naming their namespace, and windows.h may have been told not to define
// them.
using std::max;
using std::min;

#include <gdiplus.h>

// GDI+ started for as long as the object lives; a member or the first local of a test. Throws when it cannot
// start.
class GdiPlusSession
{
public:
    GdiPlusSession();
    ~GdiPlusSession();

    GdiPlusSession(const GdiPlusSession&) = delete;
    GdiPlusSession& operator=(const GdiPlusSession&) = delete;

private:
    ULONG_PTR m_token = 0;
};
