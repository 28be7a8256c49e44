#include "StandIns.h"

#include <objbase.h>

#include <array>

namespace
{
HRESULT STDMETHODCALLTYPE Succeed()
{
    return S_OK;
}

HRESULT STDMETHODCALLTYPE GetSize(void*, UINT* pWidth, UINT* pHeight);
HRESULT STDMETHODCALLTYPE CreateObject(void*, void** ppNew);
HRESULT STDMETHODCALLTYPE CreateObjectFrom(void*, void*, void** ppNew);

constexpr std::size_t kMethodCount = 32;
using Methods = std::array<void*, kMethodCount>;

Methods MakeMethods()
{
    // Places in the method tables of IWICBitmapSource and IWICImagingFactory.
    constexpr std::size_t kGetSize = 3;
    constexpr std::size_t kCreateFormatConverter = 10;
    constexpr std::size_t kCreateBitmapScaler = 11;
    constexpr std::size_t kCreateBitmapFromHICON = 22;
    Methods methods;
    methods.fill(reinterpret_cast<void*>(&Succeed));
    methods[kGetSize] = reinterpret_cast<void*>(&GetSize);
    methods[kCreateFormatConverter] = reinterpret_cast<void*>(&CreateObject);
    methods[kCreateBitmapScaler] = reinterpret_cast<void*>(&CreateObject);
    methods[kCreateBitmapFromHICON] = reinterpret_cast<void*>(&CreateObjectFrom);
    return methods;
}

const Methods g_methods = MakeMethods();

/// The library keeps one for as long as the process runs.
struct Object
{
    const void* const* pMethods = g_methods.data();
} g_object;

HRESULT STDMETHODCALLTYPE GetSize(void*, UINT* pWidth, UINT* pHeight)
{
    *pWidth = kLargestSide;
    *pHeight = kLargestSide;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CreateObject(void*, void** ppNew)
{
    *ppNew = &g_object;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE CreateObjectFrom(void*, void*, void** ppNew)
{
    *ppNew = &g_object;
    return S_OK;
}

HRESULT WINAPI CreateStream(HGLOBAL, BOOL, IStream** ppStream)
{
    *ppStream = reinterpret_cast<IStream*>(&g_object);
    return S_OK;
}

HRESULT WINAPI CreateInstance(REFCLSID, IUnknown*, DWORD, REFIID, void** ppNew)
{
    *ppNew = &g_object;
    return S_OK;
}
} // namespace

std::vector<StandIn> ObjectStandIns()
{
    return {
        MakeStandIn<decltype(::CreateStreamOnHGlobal)>("CreateStreamOnHGlobal", CreateStream),
        MakeStandIn<decltype(::CoCreateInstance)>("CoCreateInstance", CreateInstance),
    };
}
