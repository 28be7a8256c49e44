#pragma once

#include "support/ArgbImage.h"
#include "support/ImageFiles.h"

#include <windows.h>

#include <map>
#include <string>
#include <vector>

// An entry of an icon group's directory. Sizes are the bytes that stand there: 256 pixels are 0.
struct GroupEntry
{
    int width;
    int height;
    int imageId;
};

// The directory of a group as it stands in a module, with the count of its entries, or another one.
Bytes GroupDirectory(const std::vector<GroupEntry>& entries);
Bytes GroupDirectory(const std::vector<GroupEntry>& entries, int announcedCount);

// Square images whose IDs count up from 1.
Bytes SquareGroup(const std::vector<int>& sizes);

// A picture as it stands in an icon resource.
Bytes IconImageData(const ArgbImage& picture);

// A resource as it is written. The size that is announced may be another than that of the bytes, and the
// place may be some bytes away from them.
struct ResourceContent
{
    Bytes bytes;
    DWORD announcedSize;
    DWORD distance = 0;
};

// The resources of a library file with nothing but icons.
class IconFileContent
{
public:
    void AddGroup(int id, const Bytes& directory);
    void AddGroup(const std::wstring& name, const Bytes& directory);
    void AddImage(int id, const Bytes& image);

    void AddWrongGroup(int id, const ResourceContent& directory);
    void AddWrongImage(int id, const ResourceContent& image);

    // The whole file, for 64-bit Windows.
    Bytes Encode() const;

private:
    // Named resources come first, as in the file.
    struct Names
    {
        std::map<std::wstring, ResourceContent> byText;
        std::map<int, ResourceContent> byId;
    };

    friend class ResourceSection;

    Names m_images;
    Names m_groups;
};

// A file with these bytes for as long as the object lives.
class TemporaryFile
{
public:
    explicit TemporaryFile(const Bytes& bytes);
    explicit TemporaryFile(const IconFileContent& content);
    ~TemporaryFile();

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const wchar_t* Path() const { return m_path.c_str(); }

    // Fails while the file is mapped.
    bool CanBeReplaced() const;

private:
    std::wstring m_path;
};
