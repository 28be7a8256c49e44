#pragma once

#include <afxwin.h>

// Messages of the framework itself.

#define WM_SIZEPARENT 0x0361    // to a control bar: lParam is an AFX_SIZEPARENTPARAMS*
#define WM_INITIALUPDATE 0x0364 // to the views of a frame after its creation
#define WM_KICKIDLE 0x036A      // to a modal window when the queue is empty; nonzero: asks to be called again

/// What a control bar is offered and takes its space from.
struct AFX_SIZEPARENTPARAMS
{
    HDWP hDWP;      // null: only measure
    RECT rect;      // the space left, in the parent's client coordinates
    SIZE sizeTotal; // the space taken by all bars
    BOOL bStretch;
};
