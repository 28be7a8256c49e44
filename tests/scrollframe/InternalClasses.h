#pragma once

#include "foundation/FrameworkWindow.h"
#include "support/ImportSpy.h"

#include <afxwin.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

// The classes inside the library that a scrolling frame is made of, reached by the objects of a frame. Their
// virtual functions are declared here as they stand in the virtual tables. Not in an unnamed namespace: there
// the compiler would know that nobody implements them.

class FrameFunctions : public CFrameWnd
{
public:
    virtual int DoModal() = 0;
    virtual void OnClose() = 0;
    virtual LRESULT OnDpiChanged(WPARAM wParam, LPARAM lParam) = 0;
};

class ViewFunctions : public CView
{
public:
    virtual BOOL OnEraseBkgnd(CDC* pDC) = 0;
    virtual void OnSize(UINT nType, int cx, int cy) = 0;
    virtual void OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) = 0;
    virtual void OnVScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) = 0;
};

class ProxyFunctions : public CButton
{
public:
    virtual LRESULT OnDPIChangedAfterParent(WPARAM wParam, LPARAM lParam) = 0;
    virtual void OnClicked() = 0;
};

// The run-time classes of a frame and of its view, from a frame that is shown for that.
struct InternalClasses
{
    InternalClasses();

    CRuntimeClass* pFrame = nullptr;
    CRuntimeClass* pView = nullptr;
};

// A view by itself, which has nothing to show and no brush.
class ViewAlone
{
public:
    ViewAlone();

    ViewFunctions* Object() { return static_cast<ViewFunctions*>(m_object.get()); }
    HWND Handle() { return Object()->m_hWnd; }

private:
    FrameworkWindow m_parent;
    std::unique_ptr<CObject> m_object;
};

#if defined(__MINGW32__)
// What follows knows how this compiler and the framework's subset build their tables.

using EntryList = std::vector<std::pair<UINT, UINT>>; // message and notification code

// The entries of an object's own class.
EntryList MessageMapOf(const CCmdTarget& object);

// Takes the place of a virtual function in the table of an object's class.
template<typename Signature>
class VirtualFunctionSpy : public ComMethodSpy<Signature>
{
public:
    // pointer is one to the function's declaration; the signature starts with the object.
    template<typename Pointer>
    VirtualFunctionSpy(CObject* pObject, Pointer pointer, typename ComMethodSpy<Signature>::Handler handler)
        : ComMethodSpy<Signature>(pObject, SlotOf(pointer), "a virtual function", std::move(handler))
    {
    }

private:
    template<typename Pointer>
    static std::size_t SlotOf(Pointer pointer)
    {
        // A pointer to a virtual function begins with the offset of its entry, plus 1.
        std::size_t offset = 0;
        static_assert(sizeof pointer >= sizeof offset);
        std::memcpy(&offset, &pointer, sizeof offset);
        return (offset - 1) / sizeof(void*);
    }
};
#endif
