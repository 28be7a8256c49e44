#pragma once

#include <afx.h>

#include <vxmfc/Export.h>
#include <vxmfc/Forward.h>

// Exchange between the controls of a dialog and members of its object; called from DoDataExchange alone. The
// direction is CDataExchange::m_bSaveAndValidate. Text that is no number is reported to the user, and the
// exchange ends by CDataExchange::Fail.

/// Subclasses the control for an object that has no window yet.
/// Throws CNotSupportedException when the control can't be subclassed.
VXMFC_API void AFXAPI DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);

VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, BYTE& value);
VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, short& value);
VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, int& value);
VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, UINT& value);
VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, long& value);
VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, DWORD& value);
VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, CString& value);
VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, float& value);
VXMFC_API void AFXAPI DDX_Text(CDataExchange* pDX, int nIDC, double& value);

VXMFC_API void AFXAPI DDX_Check(CDataExchange* pDX, int nIDC, int& value);

/// @param nIDC  the first radio button of the group, the one with WS_GROUP.
/// @param value  index of the checked button within the group; -1: none.
VXMFC_API void AFXAPI DDX_Radio(CDataExchange* pDX, int nIDC, int& value);

VXMFC_API void AFXAPI DDX_LBIndex(CDataExchange* pDX, int nIDC, int& index); ///< -1: nothing is selected
VXMFC_API void AFXAPI DDX_LBString(CDataExchange* pDX, int nIDC, CString& value);
VXMFC_API void AFXAPI DDX_LBStringExact(CDataExchange* pDX, int nIDC, CString& value);
VXMFC_API void AFXAPI DDX_CBIndex(CDataExchange* pDX, int nIDC, int& index); ///< -1: nothing is selected
VXMFC_API void AFXAPI DDX_CBString(CDataExchange* pDX, int nIDC, CString& value);
VXMFC_API void AFXAPI DDX_CBStringExact(CDataExchange* pDX, int nIDC, CString& value);
VXMFC_API void AFXAPI DDX_Scroll(CDataExchange* pDX, int nIDC, int& value);
