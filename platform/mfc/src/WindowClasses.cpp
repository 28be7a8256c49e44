#include "WindowClasses.h"

#include <map>
#include <mutex>
#include <set>
#include <string>

namespace
{

/// The names of classes, which live as long as the framework: callers keep pointers to them.
class ClassRegistry
{
public:
    static ClassRegistry& Instance()
    {
        static ClassRegistry registry;
        return registry;
    }

    LPCTSTR Keep(const std::wstring& name)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_names.insert(name).first->c_str();
    }

    void AddToModule(HINSTANCE hInstance, LPCTSTR lpszName)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_namesOfModule[hInstance].insert(lpszName);
    }

    std::set<std::wstring> TakeFromModule(HINSTANCE hInstance)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        std::set<std::wstring> names;
        names.swap(m_namesOfModule[hInstance]);
        m_namesOfModule.erase(hInstance);
        return names;
    }

private:
    std::mutex m_mutex;
    std::set<std::wstring> m_names;                              // guarded by m_mutex
    std::map<HINSTANCE, std::set<std::wstring>> m_namesOfModule; // guarded by m_mutex
};

} // namespace

namespace vxmfc
{

void UnregisterWindowClasses(HINSTANCE hInstance)
{
    for (const std::wstring& name : ClassRegistry::Instance().TakeFromModule(hInstance))
        ::UnregisterClass(name.c_str(), hInstance);
}

LPCTSTR PlainWindowClass()
{
    return AfxRegisterWndClass(CS_DBLCLKS);
}

LPCTSTR FrameOrViewClass()
{
    return AfxRegisterWndClass(CS_DBLCLKS, nullptr, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
}

} // namespace vxmfc

BOOL AFXAPI AfxRegisterClass(WNDCLASS* lpWndClass)
{
    WNDCLASS existing = {};
    if (::GetClassInfo(lpWndClass->hInstance, lpWndClass->lpszClassName, &existing))
        return TRUE;
    if (!::RegisterClass(lpWndClass))
        return FALSE;
    if (AfxGetModuleState()->m_bDLL)
        ClassRegistry::Instance().AddToModule(lpWndClass->hInstance, lpWndClass->lpszClassName);
    return TRUE;
}

LPCTSTR AFXAPI AfxRegisterWndClass(UINT nClassStyle, HCURSOR hCursor, HBRUSH hbrBackground, HICON hIcon)
{
    WNDCLASS wndClass = {};
    wndClass.style = nClassStyle == 0 ? CS_DBLCLKS : nClassStyle;
    wndClass.lpfnWndProc = &::DefWindowProc;
    wndClass.hInstance = AfxGetInstanceHandle();
    wndClass.hCursor = hCursor == nullptr ? ::LoadCursor(nullptr, IDC_ARROW) : hCursor;
    wndClass.hbrBackground = hbrBackground;
    wndClass.hIcon = hIcon == nullptr ? ::LoadIcon(nullptr, IDI_APPLICATION) : hIcon;

    wchar_t name[96];
    ::swprintf(name, ARRAYSIZE(name), L"VxMfcWindow:%p:%x:%p:%p:%p", static_cast<void*>(wndClass.hInstance),
               wndClass.style, static_cast<void*>(wndClass.hCursor), static_cast<void*>(hbrBackground),
               static_cast<void*>(wndClass.hIcon));
    wndClass.lpszClassName = ClassRegistry::Instance().Keep(name);
    if (!AfxRegisterClass(&wndClass))
        AfxThrowResourceException();
    return wndClass.lpszClassName;
}
