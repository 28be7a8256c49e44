#include "IconFile.h"

#include <algorithm>

namespace
{
// An icon's directory in a module: a header, whose last two bytes are the number of images, and then a record
// for each image, whose first byte is the width.
constexpr size_t kHeaderBytes = 6;
constexpr size_t kRecordBytes = 14;
constexpr size_t kCountAt = 4;
constexpr int kLargestSide = 256; // does not fit into the byte and is stored as 0

IconSizes ReadDirectory(const BYTE* pBytes, size_t nBytes)
{
    IconSizes sizes;
    if (nBytes < kHeaderBytes)
        return sizes;
    const size_t nPromised = MAKEWORD(pBytes[kCountAt], pBytes[kCountAt + 1]);
    const size_t nCount = (std::min)(nPromised, (nBytes - kHeaderBytes) / kRecordBytes);
    for (size_t i = 0; i < nCount; ++i)
    {
        const int nWidth = pBytes[kHeaderBytes + i * kRecordBytes];
        sizes.push_back(nWidth == 0 ? kLargestSide : nWidth);
    }
    return sizes;
}

// Called for each icon; its name is valid during the call alone.
BOOL CALLBACK AddIcon(HMODULE hModule, LPCTSTR pszType, LPTSTR pszName, LONG_PTR lParam)
{
    const HRSRC hResource = ::FindResource(hModule, pszName, pszType);
    const HGLOBAL hData = hResource != nullptr ? ::LoadResource(hModule, hResource) : nullptr;
    const auto* const pBytes = hData != nullptr ? static_cast<const BYTE*>(::LockResource(hData)) : nullptr;
    auto& icons = *reinterpret_cast<std::vector<IconSizes>*>(lParam);
    icons.push_back(pBytes != nullptr ? ReadDirectory(pBytes, ::SizeofResource(hModule, hResource))
                                      : IconSizes());
    return TRUE;
}
} // namespace

std::vector<IconSizes> ListIcons(LPCTSTR pszPath)
{
    std::vector<IconSizes> icons;
    const HMODULE hModule = ::LoadLibraryEx(pszPath, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (hModule == nullptr)
        return icons;
    ::EnumResourceNames(hModule, RT_GROUP_ICON, &AddIcon, reinterpret_cast<LONG_PTR>(&icons));
    ::FreeLibrary(hModule);
    return icons;
}
