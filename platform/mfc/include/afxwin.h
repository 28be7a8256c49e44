#pragma once

#include <afx.h>
#include <afxres.h>
#include <afxstat_.h>
#include <atltypes.h>

#include <vxmfc/GdiObjects.h>
#include <vxmfc/DeviceContexts.h>
#include <vxmfc/CmdTarget.h>
#include <afxmsg_.h>
#include <vxmfc/Menu.h>
#include <vxmfc/Wnd.h>
#include <vxmfc/Dialog.h>
#include <vxmfc/Frame.h>
#include <vxmfc/Controls.h>
#include <vxmfc/App.h>
#include <afxdd_.h>
