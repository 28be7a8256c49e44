#include "scrollframe/InternalClasses.h"

#include "scrollframe/FrameFixtures.h"

#include <stdexcept>

namespace
{
CRuntimeClass* ClassOf(HWND hWnd)
{
    return CWnd::FromHandlePermanent(hWnd)->GetRuntimeClass();
}

#if defined(__MINGW32__)
class OpenTarget : public CCmdTarget
{
public:
    using CCmdTarget::GetMessageMap;
};
#endif
}

InternalClasses::InternalClasses()
{
    MainWindow mainWindow;
    StepDialog dialog;
    dialog.Run({},
               [&]
               {
                   pFrame = ClassOf(dialog.Frame());
                   pView = ClassOf(dialog.View());
                   dialog.Close();
               });
}

ViewAlone::ViewAlone() : m_object(InternalClasses().pView->CreateObject())
{
    CWnd* const pView = Object();
    if (!pView->Create(nullptr, nullptr, WS_CHILD, CRect(0, 0, 50, 50), m_parent.Object(), 1))
        throw std::runtime_error("the view has no window");
}

#if defined(__MINGW32__)
EntryList MessageMapOf(const CCmdTarget& object)
{
    EntryList entries;
    const AFX_MSGMAP* const pMap = (object.*&OpenTarget::GetMessageMap)();
    for (const AFX_MSGMAP_ENTRY* pEntry = pMap->pEntries; pEntry->pfnInvoke; ++pEntry)
        entries.emplace_back(pEntry->nMessage, pEntry->nCode);
    return entries;
}
#endif
