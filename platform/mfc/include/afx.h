#pragma once

#if !defined(_UNICODE) || !defined(UNICODE)
#error "The framework works with wide characters: define UNICODE and _UNICODE."
#endif

#include <windows.h>
#include <tchar.h>

#include <vxmfc/Export.h>
#include <vxmfc/Forward.h>
#include <vxmfc/Macros.h>
#include <vxmfc/Diagnostics.h>

#include <atltypes.h>
#include <cstringt.h>

namespace vxmfc
{

struct ListPosition;

} // namespace vxmfc

/// A place in a collection or in the selection of a control; null at the end.
typedef vxmfc::ListPosition* POSITION;

/// What is known of a class at run time.
///
/// A record enters the list of FromName when the module that implements it is loaded and leaves it when
/// that module is unloaded.
struct VXMFC_API CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize;
    UINT m_wSchema;
    CObject*(PASCAL* m_pfnCreateObject)(); ///< null without dynamic creation
    CRuntimeClass*(PASCAL* m_pfnGetBaseClass)();

    /// @return a new object, which the caller owns; null without dynamic creation or memory.
    CObject* CreateObject();

    static CObject* PASCAL CreateObject(LPCSTR lpszClassName);
    static CObject* PASCAL CreateObject(LPCWSTR lpszClassName);

    /// @return the record of that name, null when no loaded module has one.
    static CRuntimeClass* PASCAL FromName(LPCSTR lpszClassName);
    static CRuntimeClass* PASCAL FromName(LPCWSTR lpszClassName);

    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const; // TRUE also for the class itself
};

/// The base of the framework's classes: run-time class records, a virtual destructor, no copies.
class VXMFC_API AFX_NOVTABLE CObject
{
public:
    virtual ~CObject();

    virtual CRuntimeClass* GetRuntimeClass() const;
    BOOL IsKindOf(const CRuntimeClass* pClass) const;

    static AFX_DATA CRuntimeClass classCObject;

    CObject(const CObject& objectSrc) = delete;
    CObject& operator=(const CObject& objectSrc) = delete;

protected:
    CObject();

    static CRuntimeClass* PASCAL _GetBaseClass();
};

namespace vxmfc
{

/// Keeps a run-time class record in the list of CRuntimeClass::FromName while its module is loaded.
class VXMFC_API RuntimeClassRegistration
{
public:
    explicit RuntimeClassRegistration(CRuntimeClass* pClass);
    ~RuntimeClassRegistration();

    RuntimeClassRegistration(const RuntimeClassRegistration&) = delete;
    RuntimeClassRegistration& operator=(const RuntimeClassRegistration&) = delete;

private:
    CRuntimeClass* m_pClass;
};

} // namespace vxmfc

#define RUNTIME_CLASS(class_name) (&class_name::class##class_name)

#define DECLARE_DYNAMIC(class_name) \
protected: \
    static CRuntimeClass* PASCAL _GetBaseClass(); \
\
public: \
    static AFX_DATA CRuntimeClass class##class_name; \
    CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(class_name) \
    DECLARE_DYNAMIC(class_name) \
    static CObject* PASCAL CreateObject();

#define VXMFC_IMPLEMENT_RUNTIME_CLASS(class_name, base_class_name, creator) \
    CRuntimeClass* PASCAL class_name::_GetBaseClass() \
    { \
        return RUNTIME_CLASS(base_class_name); \
    } \
    AFX_DATA CRuntimeClass class_name::class##class_name = {#class_name, \
                                                            static_cast<int>(sizeof(class class_name)), \
                                                            0xFFFF, creator, &class_name::_GetBaseClass}; \
    static const vxmfc::RuntimeClassRegistration registrationOf##class_name(RUNTIME_CLASS(class_name)); \
    CRuntimeClass* class_name::GetRuntimeClass() const \
    { \
        return RUNTIME_CLASS(class_name); \
    }

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) \
    VXMFC_IMPLEMENT_RUNTIME_CLASS(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name) \
    CObject* PASCAL class_name::CreateObject() \
    { \
        return new class_name; \
    } \
    VXMFC_IMPLEMENT_RUNTIME_CLASS(class_name, base_class_name, &class_name::CreateObject)

/// Shows one object as another class.
/// @return pObject, or null when it is not of that class.
VXMFC_API CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);

#define DYNAMIC_DOWNCAST(class_name, object) \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))
#define STATIC_DOWNCAST(class_name, object) (static_cast<class_name*>(object))

/// The base of the exceptions that the framework throws, always as pointers; whoever catches one ends it
/// with Delete unless it is thrown on.
class VXMFC_API CException : public CObject
{
    DECLARE_DYNAMIC(CException)

public:
    CException();
    explicit CException(BOOL bAutoDelete); // TRUE: made with new

    void Delete();

    /// @return FALSE, with an empty text, when the exception has none.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const;

    /// Shows the exception's text in a message box, or the string resource nMessageID when it has none.
    virtual int ReportError(UINT nType = MB_OK, UINT nMessageID = 0);

private:
    BOOL m_bAutoDelete;
};

/// No memory.
class VXMFC_API CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)

public:
    CMemoryException();
    explicit CMemoryException(BOOL bAutoDelete);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const override;
};

/// The operation does not exist here.
class VXMFC_API CNotSupportedException : public CException
{
    DECLARE_DYNAMIC(CNotSupportedException)

public:
    CNotSupportedException();
    explicit CNotSupportedException(BOOL bAutoDelete);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const override;
};

/// A resource or a platform object could not be had.
class VXMFC_API CResourceException : public CException
{
    DECLARE_DYNAMIC(CResourceException)

public:
    CResourceException();
    explicit CResourceException(BOOL bAutoDelete);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const override;
};

/// An operation of the user failed, and the user has been told.
class VXMFC_API CUserException : public CException
{
    DECLARE_DYNAMIC(CUserException)

public:
    CUserException();
    explicit CUserException(BOOL bAutoDelete);
};

/// An argument is out of its range.
class VXMFC_API CInvalidArgException : public CException
{
    DECLARE_DYNAMIC(CInvalidArgException)

public:
    CInvalidArgException();
    explicit CInvalidArgException(BOOL bAutoDelete);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, PUINT pnHelpContext = nullptr) const override;
};

[[noreturn]] VXMFC_API void AFXAPI AfxThrowMemoryException();
[[noreturn]] VXMFC_API void AFXAPI AfxThrowNotSupportedException();
[[noreturn]] VXMFC_API void AFXAPI AfxThrowResourceException();
[[noreturn]] VXMFC_API void AFXAPI AfxThrowUserException();
[[noreturn]] VXMFC_API void AFXAPI AfxThrowInvalidArgException();

/// Cuts the iSubString-th piece, counted from 0, out of a text whose pieces chSep separates.
/// @return FALSE, with rString empty, when there are fewer pieces.
VXMFC_API BOOL AFXAPI AfxExtractSubString(CString& rString, LPCTSTR lpszFullString, int iSubString,
                                          TCHAR chSep = _T('\n'));

/// Loads a string resource and replaces its "%1" and "%2".
VXMFC_API void AFXAPI AfxFormatString1(CString& rString, UINT nIDS, LPCTSTR lpsz1);
VXMFC_API void AFXAPI AfxFormatString2(CString& rString, UINT nIDS, LPCTSTR lpsz1, LPCTSTR lpsz2);
