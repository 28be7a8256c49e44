#include "MessageMap.h"

namespace vxmfc
{

namespace
{

bool IsControlColorMessage(UINT message)
{
    return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
}

bool CoversMessage(const AFX_MSGMAP_ENTRY& entry, UINT message)
{
    if (entry.pRegisteredMessage != nullptr)
        return *entry.pRegisteredMessage == message;
    if (entry.nMessage == WM_CTLCOLOR)
        return IsControlColorMessage(message);
    if (entry.nMessage == WM_REFLECT_BASE + WM_CTLCOLOR)
        return IsControlColorMessage(message - WM_REFLECT_BASE);
    return entry.nMessage == message;
}

bool Covers(const AFX_MSGMAP_ENTRY& entry, const MessageKey& key)
{
    return CoversMessage(entry, key.message) && entry.nCode == key.code && entry.nFirstID <= key.id &&
           key.id <= entry.nLastID;
}

} // namespace

const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* pMap, const MessageKey& key)
{
    for (; pMap != nullptr; pMap = pMap->pfnGetBaseMap == nullptr ? nullptr : pMap->pfnGetBaseMap())
    {
        for (const AFX_MSGMAP_ENTRY* pEntry = pMap->pEntries; pEntry->pfnInvoke != nullptr; ++pEntry)
        {
            if (Covers(*pEntry, key))
                return pEntry;
        }
    }
    return nullptr;
}

CWnd* WindowOf(LPARAM hWnd)
{
    return CWnd::FromHandle(reinterpret_cast<HWND>(hWnd));
}

CDC* DeviceContextOf(WPARAM hDC)
{
    return CDC::FromHandle(reinterpret_cast<HDC>(hDC));
}

CMenu* MenuOf(LPARAM hMenu)
{
    return CMenu::FromHandle(reinterpret_cast<HMENU>(hMenu));
}

} // namespace vxmfc
