#include "imaging/IconFiles.h"

#include <cstring>
#include <stdexcept>
#include <utility>

namespace
{
constexpr DWORD kHeaderSize = 0x200;
constexpr DWORD kFileAlignment = 0x200;
constexpr DWORD kSectionAlignment = 0x1000;
constexpr DWORD kSectionAddress = 0x1000;
constexpr DWORD kSubdirectory = 0x80000000;
constexpr DWORD kTextName = 0x80000000;
constexpr DWORD kLanguage = 0x0409;

template<typename Value>
void Append(Bytes& bytes, const Value& value)
{
    const auto* const first = reinterpret_cast<const std::uint8_t*>(&value);
    bytes.insert(bytes.end(), first, first + sizeof value);
}

void AppendBytes(Bytes& bytes, const Bytes& more)
{
    bytes.insert(bytes.end(), more.begin(), more.end());
}

template<typename Value>
void Store(Bytes& bytes, std::size_t offset, const Value& value)
{
    std::memcpy(bytes.data() + offset, &value, sizeof value);
}

DWORD SizeOf(const Bytes& bytes)
{
    return static_cast<DWORD>(bytes.size());
}

DWORD RoundUp(DWORD size, DWORD alignment)
{
    return (size + alignment - 1) / alignment * alignment;
}

void PadTo(Bytes& bytes, DWORD alignment)
{
    bytes.resize(RoundUp(SizeOf(bytes), alignment));
}
}

// The section in the order in which it is written: each directory with its entries, whose targets are filled
// in when they are written themselves.
class ResourceSection
{
public:
    explicit ResourceSection(const IconFileContent& content)
    {
        const bool hasImages = IsUsed(content.m_images);
        const bool hasGroups = IsUsed(content.m_groups);
        AppendDirectory(0, static_cast<std::size_t>(hasImages) + static_cast<std::size_t>(hasGroups));
        const std::size_t imageType = hasImages ? AppendIdEntry(3) : 0;
        const std::size_t groupType = hasGroups ? AppendIdEntry(14) : 0;
        if (hasImages)
            AppendType(imageType, content.m_images);
        if (hasGroups)
            AppendType(groupType, content.m_groups);
    }

    const Bytes& Content() const { return m_bytes; }

private:
    static bool IsUsed(const IconFileContent::Names& names)
    {
        return !names.byText.empty() || !names.byId.empty();
    }

    void AppendDirectory(std::size_t textCount, std::size_t idCount)
    {
        IMAGE_RESOURCE_DIRECTORY directory = {};
        directory.NumberOfNamedEntries = static_cast<WORD>(textCount);
        directory.NumberOfIdEntries = static_cast<WORD>(idCount);
        Append(m_bytes, directory);
    }

    // Returns where the entry's target is to be stored.
    std::size_t AppendIdEntry(DWORD id)
    {
        Append(m_bytes, id);
        Append(m_bytes, DWORD{0});
        return m_bytes.size() - sizeof(DWORD);
    }

    void PointToHere(std::size_t target, DWORD flag) { Store(m_bytes, target, SizeOf(m_bytes) | flag); }

    void AppendType(std::size_t target, const IconFileContent::Names& names)
    {
        PointToHere(target, kSubdirectory);
        AppendDirectory(names.byText.size(), names.byId.size());
        std::vector<std::pair<std::size_t, const ResourceContent*>> resources;
        std::vector<std::pair<std::size_t, const std::wstring*>> texts;
        for (const auto& [text, resource] : names.byText)
        {
            resources.emplace_back(AppendIdEntry(0), &resource);
            texts.emplace_back(resources.back().first - sizeof(DWORD), &text);
        }
        for (const auto& [id, resource] : names.byId)
            resources.emplace_back(AppendIdEntry(static_cast<DWORD>(id)), &resource);
        for (const auto& [entry, text] : texts)
            AppendText(entry, *text);
        for (const auto& [entry, resource] : resources)
            AppendResource(entry, *resource);
    }

    void AppendText(std::size_t target, const std::wstring& text)
    {
        PointToHere(target, kTextName);
        Append(m_bytes, static_cast<WORD>(text.size()));
        for (const wchar_t letter : text)
            Append(m_bytes, static_cast<WORD>(letter));
        PadTo(m_bytes, sizeof(DWORD));
    }

    // A resource in one language.
    void AppendResource(std::size_t target, const ResourceContent& resource)
    {
        PointToHere(target, kSubdirectory);
        AppendDirectory(0, 1);
        PointToHere(AppendIdEntry(kLanguage), 0);
        IMAGE_RESOURCE_DATA_ENTRY data = {};
        data.OffsetToData =
            kSectionAddress + SizeOf(m_bytes) + static_cast<DWORD>(sizeof data) + resource.distance;
        data.Size = resource.announcedSize;
        Append(m_bytes, data);
        AppendBytes(m_bytes, resource.bytes);
        PadTo(m_bytes, sizeof(DWORD));
    }

    Bytes m_bytes;
};

namespace
{
IMAGE_NT_HEADERS64 Headers(DWORD sectionSize)
{
    IMAGE_NT_HEADERS64 headers = {};
    headers.Signature = IMAGE_NT_SIGNATURE;
    headers.FileHeader.Machine = IMAGE_FILE_MACHINE_AMD64;
    headers.FileHeader.NumberOfSections = 1;
    headers.FileHeader.SizeOfOptionalHeader = sizeof headers.OptionalHeader;
    headers.FileHeader.Characteristics = IMAGE_FILE_EXECUTABLE_IMAGE | IMAGE_FILE_DLL;
    headers.OptionalHeader.Magic = IMAGE_NT_OPTIONAL_HDR64_MAGIC;
    headers.OptionalHeader.ImageBase = 0x180000000;
    headers.OptionalHeader.SectionAlignment = kSectionAlignment;
    headers.OptionalHeader.FileAlignment = kFileAlignment;
    headers.OptionalHeader.MajorOperatingSystemVersion = 6;
    headers.OptionalHeader.MajorSubsystemVersion = 6;
    headers.OptionalHeader.SizeOfImage = kSectionAddress + RoundUp(sectionSize, kSectionAlignment);
    headers.OptionalHeader.SizeOfHeaders = kHeaderSize;
    headers.OptionalHeader.Subsystem = IMAGE_SUBSYSTEM_WINDOWS_GUI;
    headers.OptionalHeader.NumberOfRvaAndSizes = IMAGE_NUMBEROF_DIRECTORY_ENTRIES;
    IMAGE_DATA_DIRECTORY& resources = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_RESOURCE];
    resources.VirtualAddress = kSectionAddress;
    resources.Size = sectionSize;
    return headers;
}

IMAGE_SECTION_HEADER SectionHeader(DWORD sectionSize)
{
    IMAGE_SECTION_HEADER section = {};
    std::memcpy(section.Name, ".rsrc", 5);
    section.Misc.VirtualSize = sectionSize;
    section.VirtualAddress = kSectionAddress;
    section.SizeOfRawData = RoundUp(sectionSize, kFileAlignment);
    section.PointerToRawData = kHeaderSize;
    section.Characteristics = IMAGE_SCN_CNT_INITIALIZED_DATA | IMAGE_SCN_MEM_READ;
    return section;
}

void WriteWhole(const std::wstring& path, const Bytes& bytes)
{
    const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    DWORD written = 0;
    const BOOL isWritten = ::WriteFile(file, bytes.data(), SizeOf(bytes), &written, nullptr);
    ::CloseHandle(file);
    if (!isWritten || written != bytes.size())
        throw std::runtime_error("no temporary file");
}

void AppendWord(Bytes& bytes, int value)
{
    Append(bytes, static_cast<WORD>(value));
}
}

Bytes GroupDirectory(const std::vector<GroupEntry>& entries)
{
    return GroupDirectory(entries, static_cast<int>(entries.size()));
}

Bytes GroupDirectory(const std::vector<GroupEntry>& entries, int announcedCount)
{
    Bytes directory;
    AppendWord(directory, 0);
    AppendWord(directory, 1);
    AppendWord(directory, announcedCount);
    for (const GroupEntry& entry : entries)
    {
        directory.push_back(static_cast<std::uint8_t>(entry.width));
        directory.push_back(static_cast<std::uint8_t>(entry.height));
        AppendWord(directory, 0);
        AppendWord(directory, 1);
        AppendWord(directory, 32);
        Append(directory, DWORD{0});
        AppendWord(directory, entry.imageId);
    }
    return directory;
}

Bytes SquareGroup(const std::vector<int>& sizes)
{
    std::vector<GroupEntry> entries;
    for (const int size : sizes)
        entries.push_back({size, size, static_cast<int>(entries.size()) + 1});
    return GroupDirectory(entries);
}

Bytes IconImageData(const ArgbImage& picture)
{
    constexpr std::ptrdiff_t kFileHeader = 6 + 16; // with one entry
    const Bytes file = EncodeIco({picture});
    return Bytes(file.begin() + kFileHeader, file.end());
}

void IconFileContent::AddGroup(int id, const Bytes& directory)
{
    AddWrongGroup(id, {directory, SizeOf(directory)});
}

void IconFileContent::AddGroup(const std::wstring& name, const Bytes& directory)
{
    m_groups.byText[name] = {directory, SizeOf(directory)};
}

void IconFileContent::AddImage(int id, const Bytes& image)
{
    AddWrongImage(id, {image, SizeOf(image)});
}

void IconFileContent::AddWrongGroup(int id, const ResourceContent& directory)
{
    m_groups.byId[id] = directory;
}

void IconFileContent::AddWrongImage(int id, const ResourceContent& image)
{
    m_images.byId[id] = image;
}

Bytes IconFileContent::Encode() const
{
    const Bytes section = ResourceSection(*this).Content();
    IMAGE_DOS_HEADER dos = {};
    dos.e_magic = IMAGE_DOS_SIGNATURE;
    dos.e_lfanew = sizeof dos;
    Bytes file;
    Append(file, dos);
    Append(file, Headers(SizeOf(section)));
    Append(file, SectionHeader(SizeOf(section)));
    PadTo(file, kHeaderSize);
    AppendBytes(file, section);
    PadTo(file, kFileAlignment);
    return file;
}

TemporaryFile::TemporaryFile(const Bytes& bytes)
{
    wchar_t folder[MAX_PATH] = {};
    wchar_t path[MAX_PATH] = {};
    ::GetTempPathW(MAX_PATH, folder);
    ::GetTempFileNameW(folder, L"vxi", 0, path);
    m_path = path;
    WriteWhole(m_path, bytes);
}

TemporaryFile::TemporaryFile(const IconFileContent& content) : TemporaryFile(content.Encode()) {}

TemporaryFile::~TemporaryFile()
{
    ::DeleteFileW(m_path.c_str());
}

bool TemporaryFile::CanBeReplaced() const
{
    const HANDLE file =
        ::CreateFileW(m_path.c_str(), GENERIC_WRITE, 0, nullptr, TRUNCATE_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    ::CloseHandle(file);
    return true;
}
