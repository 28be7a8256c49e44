#pragma once

#include <afxwin.h>

#include <memory>
#include <type_traits>

/// Owners of platform handles. Each frees in the way that fits how the handle was acquired.

struct GdiObjectDeleter
{
    void operator()(HGDIOBJ hObject) const { ::DeleteObject(hObject); }
};

struct MemoryDcDeleter
{
    void operator()(HDC hdc) const { ::DeleteDC(hdc); }
};

struct GlobalMemoryDeleter
{
    using pointer = HGLOBAL;

    void operator()(HGLOBAL hMemory) const { ::GlobalFree(hMemory); }
};

struct GlobalMemoryUnlocker
{
    using pointer = HGLOBAL;

    void operator()(HGLOBAL hMemory) const { ::GlobalUnlock(hMemory); }
};

struct IconDestroyer
{
    void operator()(HICON hIcon) const { ::DestroyIcon(hIcon); }
};

struct ModuleFreer
{
    void operator()(HMODULE hModule) const { ::FreeLibrary(hModule); }
};

struct ComReleaser
{
    void operator()(IUnknown* pObject) const { pObject->Release(); }
};

struct LoadedResourceFreer
{
    using pointer = HGLOBAL;

    void operator()(HGLOBAL hResource) const { ::FreeResource(hResource); }
};

using UniqueBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, GdiObjectDeleter>;
using UniqueFont = std::unique_ptr<std::remove_pointer_t<HFONT>, GdiObjectDeleter>;
using UniqueRegion = std::unique_ptr<std::remove_pointer_t<HRGN>, GdiObjectDeleter>;
using UniqueMemoryDc = std::unique_ptr<std::remove_pointer_t<HDC>, MemoryDcDeleter>;
using UniqueIcon = std::unique_ptr<std::remove_pointer_t<HICON>, IconDestroyer>;
using UniqueModule = std::unique_ptr<std::remove_pointer_t<HMODULE>, ModuleFreer>;
using UniqueGlobalMemory = std::unique_ptr<void, GlobalMemoryDeleter>;
using GlobalMemoryLock = std::unique_ptr<void, GlobalMemoryUnlocker>;
using UniqueLoadedResource = std::unique_ptr<void, LoadedResourceFreer>;

template<class Interface>
using UniqueCom = std::unique_ptr<Interface, ComReleaser>;

/// The whole screen's device context.
class ScreenDc
{
public:
    ScreenDc() : m_hdc(::GetDC(nullptr)) {}
    ScreenDc(const ScreenDc&) = delete;
    ScreenDc& operator=(const ScreenDc&) = delete;
    ~ScreenDc()
    {
        if (m_hdc)
            ::ReleaseDC(nullptr, m_hdc);
    }

    HDC Get() const { return m_hdc; }

private:
    HDC m_hdc;
};

/// Puts the object that a device context had before back into it.
class Selection
{
public:
    Selection(HDC hdc, HGDIOBJ hObject) : m_hdc(hdc), m_hPrevious(::SelectObject(hdc, hObject)) {}
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;
    ~Selection() { Restore(); }

    void Restore()
    {
        if (m_hdc)
            ::SelectObject(m_hdc, m_hPrevious);
        m_hdc = nullptr;
    }

private:
    HDC m_hdc;
    HGDIOBJ m_hPrevious;
};
