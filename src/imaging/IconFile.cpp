#include <vxdpi/Images.h>

#include "IconGroup.h"

#include <foundation/Guards.h>

#include <algorithm>
#include <new>
#include <string>
#include <vector>

namespace
{
constexpr DWORD kIconFormatVersion = 0x00030000;

/// A resource's name. Text is copied: the platform's own lives only during the enumeration.
class ResourceName
{
public:
    explicit ResourceName(LPCWSTR pszName)
    {
        if (IS_INTRESOURCE(pszName))
            m_nId = static_cast<WORD>(reinterpret_cast<ULONG_PTR>(pszName));
        else
            m_text = pszName;
    }

    LPCWSTR Get() const { return m_text.empty() ? MAKEINTRESOURCEW(m_nId) : m_text.c_str(); }

private:
    WORD m_nId = 0;
    std::wstring m_text;
};

BOOL CALLBACK AppendName(HMODULE, LPCWSTR, LPWSTR pszName, LONG_PTR lParam)
{
    // The platform calls this, and must not be left by an exception: without memory the list ends here.
    try
    {
        reinterpret_cast<std::vector<ResourceName>*>(lParam)->emplace_back(pszName);
    }
    catch (const std::bad_alloc&)
    {
        return FALSE;
    }
    return TRUE;
}

std::vector<ResourceName> ListIcons(HMODULE hModule)
{
    std::vector<ResourceName> names;
    ::EnumResourceNamesW(hModule, RT_GROUP_ICON, AppendName, reinterpret_cast<LONG_PTR>(&names));
    return names;
}

/// Bytes in place in a module; null when there are none.
struct IconBytes
{
    BYTE* pBytes = nullptr;
    DWORD nSize = 0;
};

/// How much of a resource is there to read: a damaged file may tell of more than it has.
DWORD MappedSize(const BYTE* pBytes, DWORD nTold)
{
    MEMORY_BASIC_INFORMATION pages = {};
    ::VirtualQuery(pBytes, &pages, sizeof(pages));
    const void* const pMapping = pages.AllocationBase;
    DWORD nMapped = 0;
    while (nMapped < nTold && pages.State == MEM_COMMIT && pages.AllocationBase == pMapping)
    {
        const BYTE* const pEnd = static_cast<const BYTE*>(pages.BaseAddress) + pages.RegionSize;
        nMapped = static_cast<DWORD>((std::min)(ULONGLONG{nTold}, static_cast<ULONGLONG>(pEnd - pBytes)));
        if (::VirtualQuery(pEnd, &pages, sizeof(pages)) == 0)
            break;
    }
    return nMapped;
}

IconBytes LockIconResource(HMODULE hModule, LPCWSTR pszName, LPCWSTR pszType)
{
    const HRSRC hInfo = ::FindResourceW(hModule, pszName, pszType);
    const HGLOBAL hResource = hInfo ? ::LoadResource(hModule, hInfo) : nullptr;
    IconBytes bytes;
    bytes.pBytes = hResource ? static_cast<BYTE*>(::LockResource(hResource)) : nullptr;
    if (bytes.pBytes)
        bytes.nSize = MappedSize(bytes.pBytes, ::SizeofResource(hModule, hInfo));
    return bytes;
}

HICON MakeIcon(HMODULE hModule, const IconGroup::Image& image)
{
    const IconBytes bytes = LockIconResource(hModule, MAKEINTRESOURCEW(image.nId), RT_ICON);
    if (!bytes.pBytes)
        return nullptr;
    return ::CreateIconFromResourceEx(bytes.pBytes, bytes.nSize, TRUE, kIconFormatVersion, image.nSize,
                                      image.nSize, LR_DEFAULTCOLOR);
}
} // namespace

HICON LoadIconByTargetSizeFromFile(LPCWSTR pszPath, int nIndex, int nTargetSize)
{
    if (!pszPath || nIndex < 0)
        return nullptr;
    const UniqueModule module(
        ::LoadLibraryExW(pszPath, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_WITH_ALTERED_SEARCH_PATH));
    if (!module)
        return nullptr;
    const std::vector<ResourceName> names = ListIcons(module.get());
    const std::size_t index = static_cast<std::size_t>(nIndex);
    if (index >= names.size())
        return nullptr;
    const IconBytes group = LockIconResource(module.get(), names[index].Get(), RT_GROUP_ICON);
    if (!group.pBytes)
        return nullptr;
    return MakeIcon(module.get(), IconGroup::Choose(group.pBytes, group.nSize, nTargetSize));
}
