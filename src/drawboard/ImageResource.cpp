#include <vxdpi/DrawBoard.h>

#include <foundation/Guards.h>
#include <foundation/ResourceMemory.h>

#include <iterator>

namespace
{
/// Makes an image of bytes, whatever they hold.
/// @return the image, which the caller deletes; null when memory is short.
Gdiplus::Image* MakeImage(HGLOBAL hBlock)
{
    IStream* pNewStream = nullptr;
    if (FAILED(::CreateStreamOnHGlobal(hBlock, FALSE, &pNewStream)))
        return nullptr;
    const UniqueCom<IStream> stream(pNewStream);
    return new Gdiplus::Image(stream.get(), FALSE);
}
} // namespace

CImageResource::CImageResource(const UINT& dpi, const UINT& resId, const CString& type)
    : m_nResID(resId), m_nDpi(dpi), m_strType(type), m_pImage(nullptr)
{
}

CImageResource::CImageResource(const CImageResource& other) = default;

CImageResource& CImageResource::operator=(const CImageResource& other) = default;

CImageResource::~CImageResource()
{
    DestroyImage();
}

Gdiplus::Image* CImageResource::GetImage()
{
    return m_pImage ? m_pImage : LoadImageFromResource();
}

Gdiplus::Image* CImageResource::LoadImageFromResource()
{
    DestroyImage();
    const HINSTANCE hModule = AfxGetResourceHandle();
    if (!hModule)
        return nullptr;
    const ResourceBytes found = FindResourceBytes([hModule] { return hModule; }, m_nResID, m_strType);
    if (!found.pBytes)
        return nullptr;
    const UniqueGlobalMemory block = CopyToGlobalMemory(found.pBytes, found.size);
    if (!block)
        return nullptr;
    m_pImage = MakeImage(block.get());
    return m_pImage;
}

void CImageResource::DestroyImage()
{
    delete m_pImage;
    m_pImage = nullptr;
}

BOOL CDpiImageResource::Add(UINT dpi, UINT resId, const CString& type)
{
    return m_variants.emplace(dpi, CImageResource(dpi, resId, type)).second ? TRUE : FALSE;
}

Gdiplus::Image* CDpiImageResource::Pick(UINT dpi, UINT* pChosenDpi)
{
    if (m_variants.empty())
        return nullptr;
    auto chosen = m_variants.lower_bound(dpi);
    if (chosen == m_variants.end())
        chosen = std::prev(chosen);
    if (pChosenDpi)
        *pChosenDpi = chosen->first;
    return chosen->second.GetImage();
}
