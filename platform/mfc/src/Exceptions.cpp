#include <afxwin.h>

#include <algorithm>

namespace
{

// Copies as much of a text as fits; always ends it.
BOOL CopyMessage(LPCTSTR pszMessage, LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext)
{
    if (pnHelpContext != nullptr)
        *pnHelpContext = 0;
    if (lpszError == nullptr || nMaxError == 0)
        return FALSE;
    ::lstrcpyn(lpszError, pszMessage, static_cast<int>(std::min<UINT>(nMaxError, INT_MAX)));
    return TRUE;
}

constexpr UINT kMaxMessage = 512;

CMemoryException g_memoryException(FALSE); // made beforehand: later there is no memory to make it

} // namespace

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CException)
IMPLEMENT_DYNAMIC(CResourceException, CException)
IMPLEMENT_DYNAMIC(CUserException, CException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)

CException::CException() : CException(TRUE) {}

CException::CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

void CException::Delete()
{
    if (m_bAutoDelete)
        delete this;
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    CopyMessage(_T(""), lpszError, nMaxError, pnHelpContext);
    return FALSE;
}

int CException::ReportError(UINT nType, UINT nMessageID)
{
    TCHAR message[kMaxMessage] = {};
    UINT nHelp = 0;
    if (GetErrorMessage(message, kMaxMessage, &nHelp))
        return AfxMessageBox(message, nType, nHelp);
    if (nMessageID != 0)
        return AfxMessageBox(nMessageID, nType, nHelp);
    return AfxMessageBox(_T("No message is available for this error."), nType, nHelp);
}

CMemoryException::CMemoryException() = default;

CMemoryException::CMemoryException(BOOL bAutoDelete) : CException(bAutoDelete) {}

BOOL CMemoryException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    return CopyMessage(_T("There is not enough memory."), lpszError, nMaxError, pnHelpContext);
}

CNotSupportedException::CNotSupportedException() = default;

CNotSupportedException::CNotSupportedException(BOOL bAutoDelete) : CException(bAutoDelete) {}

BOOL CNotSupportedException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    return CopyMessage(_T("The operation is not supported."), lpszError, nMaxError, pnHelpContext);
}

CResourceException::CResourceException() = default;

CResourceException::CResourceException(BOOL bAutoDelete) : CException(bAutoDelete) {}

BOOL CResourceException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    return CopyMessage(_T("A system resource is not available."), lpszError, nMaxError, pnHelpContext);
}

CUserException::CUserException() = default;

CUserException::CUserException(BOOL bAutoDelete) : CException(bAutoDelete) {}

CInvalidArgException::CInvalidArgException() = default;

CInvalidArgException::CInvalidArgException(BOOL bAutoDelete) : CException(bAutoDelete) {}

BOOL CInvalidArgException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext) const
{
    return CopyMessage(_T("An argument is not valid."), lpszError, nMaxError, pnHelpContext);
}

void AFXAPI AfxThrowMemoryException()
{
    throw &g_memoryException;
}

void AFXAPI AfxThrowNotSupportedException()
{
    throw new CNotSupportedException;
}

void AFXAPI AfxThrowResourceException()
{
    throw new CResourceException;
}

void AFXAPI AfxThrowUserException()
{
    throw new CUserException;
}

void AFXAPI AfxThrowInvalidArgException()
{
    throw new CInvalidArgException;
}
