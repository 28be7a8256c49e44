#include <vxdpi/Images.h>

#include "foundation/ShortMemory.h"
#include "imaging/IconFiles.h"
#include "imaging/Icons.h"
#include "imaging/RecordNamed.h"
#include "support/HandleCount.h"
#include "support/ResourceDll.h"
#include "support/TestResources.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>
#include <string>
#include <vector>

namespace
{
using Lines = CallLog::LineList;

constexpr char kKernel[] = "kernel32.dll";
constexpr char kUser[] = "user32.dll";

OwnedIcon Load(const wchar_t* path, int index, int targetSize)
{
    return OwnedIcon(LoadIconByTargetSizeFromFile(path, index, targetSize));
}

std::wstring ProgramPath()
{
    wchar_t path[MAX_PATH] = {};
    ::GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

// Calls that read an icon file, written down in their order. The objects on the way are named "module1",
// "found1", "resource1" (loading and locking may answer the same), "bytes1" and "icon1"; of a directory and
// of an image, in this order, when both are read.
class FileCalls
{
public:
    explicit FileCalls(CallLog& log)
        : m_load(log, VxDpiModule(), kKernel, "LoadLibraryExW", "module"),
          m_enumerate(VxDpiModule(), kKernel, "EnumResourceNamesW",
                      [this, &log](HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW callback, LONG_PTR list)
                      {
                          log.WriteCall("EnumResourceNamesW", module, type);
                          return m_enumerate.Original()(module, type, callback, list);
                      }),
          m_find(log, VxDpiModule(), kKernel, "FindResourceW", "found"),
          m_loadResource(log, VxDpiModule(), kKernel, "LoadResource", "resource"),
          m_lock(log, VxDpiModule(), kKernel, "LockResource", "bytes"),
          m_size(log, VxDpiModule(), kKernel, "SizeofResource"),
          m_make(log, VxDpiModule(), kUser, "CreateIconFromResourceEx", "icon"),
          m_free(log, VxDpiModule(), kKernel, "FreeLibrary")
    {
    }

private:
    RecordNamed<decltype(::LoadLibraryExW)> m_load;
    ImportSpy<decltype(::EnumResourceNamesW)> m_enumerate;
    RecordNamed<decltype(::FindResourceW)> m_find;
    RecordNamed<decltype(::LoadResource)> m_loadResource;
    RecordNamed<decltype(::LockResource)> m_lock;
    RecordCalls<decltype(::SizeofResource)> m_size;
    RecordNamed<decltype(::CreateIconFromResourceEx)> m_make;
    RecordCalls<decltype(::FreeLibrary)> m_free;
};

Lines CallsOf(const wchar_t* path, int index, int targetSize, bool succeeds)
{
    CallLog log;
    const FileCalls calls(log);
    EXPECT_EQ(Load(path, index, targetSize) != nullptr, succeeds);
    return log.Lines();
}

// Images of 16, 32 and 48 pixels and one of 256 in one group.
IconFileContent TypicalContent()
{
    IconFileContent content;
    content.AddGroup(101, SquareGroup({16, 32, 48, 0}));
    content.AddImage(1, IconImageData(FramedPicture(16, 16)));
    content.AddImage(2, IconImageData(FramedPicture(32, 32)));
    content.AddImage(3, IconImageData(FramedPicture(48, 48)));
    content.AddImage(4, IconImageData(ArgbImage(256, 256, kOtherColor)));
    return content;
}

// The only group of a file, with images whose pictures tell which one was taken.
class IconGroupInFile : public testing::Test
{
protected:
    static OwnedIcon Choose(const Bytes& directory, int targetSize)
    {
        IconFileContent content;
        content.AddGroup(7, directory);
        content.AddImage(1, IconImageData(ArgbImage(16, 16, ColorOf(1))));
        content.AddImage(2, IconImageData(ArgbImage(32, 32, ColorOf(2))));
        content.AddImage(3, IconImageData(ArgbImage(48, 48, ColorOf(3))));
        const TemporaryFile file(content);
        OwnedIcon icon = Load(file.Path(), 0, targetSize);
        EXPECT_TRUE(file.CanBeReplaced());
        return icon;
    }

    // The ID of the image that was taken; 0 when none was.
    static int ChosenId(const Bytes& directory, int targetSize)
    {
        const OwnedIcon icon = Choose(directory, targetSize);
        if (icon == nullptr)
            return 0;
        const std::uint32_t color = PixelsOf(icon.get()).At(0, 0);
        return color == ColorOf(1) ? 1 : color == ColorOf(2) ? 2 : 3;
    }

    static std::uint32_t ColorOf(int id) { return 0xFF000000 + 0x40 * static_cast<std::uint32_t>(id); }
};

class IconOfFile : public testing::Test
{
protected:
    IconOfFile() : m_file(TypicalContent()) {}

    Lines CallsUntil(std::size_t count, const Lines& others = {"FreeLibrary(module1)"}) const
    {
        const std::string imageSize = std::to_string(IconImageData(FramedPicture(32, 32)).size());
        const std::string make = "CreateIconFromResourceEx(bytes2, " + imageSize + ", 1, 196608, 32, 32, 0)";
        Lines lines = {"LoadLibraryExW(\"" + PathText() + "\", null, 10)",
                       "EnumResourceNamesW(module1, @14)",
                       "FindResourceW(module1, @101, @14)",
                       "LoadResource(module1, found1)",
                       "LockResource(resource1)",
                       "SizeofResource(module1, found1)",
                       "FindResourceW(module1, @2, @3)",
                       "LoadResource(module1, found2)",
                       "LockResource(resource2)",
                       "SizeofResource(module1, found2)",
                       make};
        lines.resize(count);
        lines.insert(lines.end(), others.begin(), others.end());
        return lines;
    }

    std::string PathText() const
    {
        const std::wstring path = m_file.Path();
        return std::string(path.begin(), path.end());
    }

    const TemporaryFile m_file;
};

template<typename Signature>
class FailKernelCall : public FailNthCall<Signature>
{
public:
    template<typename Failure>
    FailKernelCall(const char* functionName, int failingCall, Failure failure)
        : FailNthCall<Signature>(VxDpiModule(), kKernel, functionName, failingCall, failure)
    {
    }
};
}

TEST_F(IconOfFile, IsTheSmallestImageThatReachesTheTarget)
{
    const OwnedIcon icon = Load(m_file.Path(), 0, 24);
    EXPECT_TRUE(SamePixels(FramedPicture(32, 32), PixelsOf(icon.get())));
}

TEST_F(IconOfFile, IsTheImageOfExactlyTheTarget)
{
    for (const int size : {16, 32, 48})
    {
        const OwnedIcon icon = Load(m_file.Path(), 0, size);
        EXPECT_TRUE(SamePixels(FramedPicture(size, size), PixelsOf(icon.get())));
    }
}

TEST_F(IconOfFile, IsTheLargestImageWhenNoneReachesTheTargetButNotThatOf256)
{
    for (const int size : {49, 64, 255, 256, INT_MAX})
    {
        const OwnedIcon icon = Load(m_file.Path(), 0, size);
        EXPECT_TRUE(SamePixels(FramedPicture(48, 48), PixelsOf(icon.get())));
    }
}

TEST_F(IconOfFile, IsTheSmallestImageForATargetOf0OrLess)
{
    for (const int size : {1, 0, -1, INT_MIN})
        EXPECT_TRUE(HasSize(Load(m_file.Path(), 0, size).get(), 16, 16)) << size;
}

TEST_F(IconOfFile, IsANewOneEachTime)
{
    OwnedIcon first = Load(m_file.Path(), 0, 16);
    const OwnedIcon second = Load(m_file.Path(), 0, 16);
    EXPECT_NE(first.get(), second.get());
    EXPECT_TRUE(::DestroyIcon(first.release()));
    EXPECT_TRUE(IsIcon(second.get()));
}

TEST_F(IconOfFile, IsReadInTheseStepsWithTheImagesOwnSize)
{
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, true), CallsUntil(11));
}

TEST_F(IconOfFile, NeedsAPath)
{
    EXPECT_EQ(CallsOf(nullptr, 0, 24, false), Lines());
}

TEST_F(IconOfFile, NeedsAnIndexThatIsNotNegative)
{
    EXPECT_EQ(CallsOf(m_file.Path(), -1, 24, false), Lines());
    EXPECT_EQ(CallsOf(m_file.Path(), INT_MIN, 24, false), Lines());
}

TEST_F(IconOfFile, AnIndexBehindTheLastGroupFreesTheModule)
{
    EXPECT_EQ(CallsOf(m_file.Path(), 1, 24, false), CallsUntil(2));
    EXPECT_EQ(CallsOf(m_file.Path(), INT_MAX, 24, false), CallsUntil(2));
}

TEST_F(IconOfFile, TheFileIsFreeAfterwards)
{
    Load(m_file.Path(), 0, 24);
    Load(m_file.Path(), 1, 24);
    EXPECT_TRUE(m_file.CanBeReplaced());
}

// Some platforms answer the same address for both, so only other bytes tell whose were read.
TEST_F(IconOfFile, TheLockedBytesAreReadNotTheLoadedOnes)
{
    Bytes directory = SquareGroup({0, 0, 24, 0});
    Bytes image = IconImageData(ArgbImage(24, 24, kOtherColor));
    image.resize(image.size() + 5000); // at least as long as the resource
    int locked = 0;
    const ImportSpy<decltype(::LockResource)> lock(
        VxDpiModule(), kKernel, "LockResource",
        [&](HGLOBAL) { return ++locked == 1 ? directory.data() : image.data(); });
    const OwnedIcon icon = Load(m_file.Path(), 0, 20);
    EXPECT_TRUE(SamePixels(ArgbImage(24, 24, kOtherColor), PixelsOf(icon.get())));
}

TEST_F(IconOfFile, WithoutAModuleNothingElseIsAsked)
{
    const FailKernelCall<decltype(::LoadLibraryExW)> fail("LoadLibraryExW", 1, nullptr);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(1, {}));
}

TEST_F(IconOfFile, WithoutNamesThereIsNoGroup)
{
    const FailKernelCall<decltype(::EnumResourceNamesW)> fail("EnumResourceNamesW", 1, FALSE);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(2));
}

// No exception goes through the platform's list of names.
TEST_F(IconOfFile, WithoutMemoryForANameThereIsNoGroup)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    int allocations = 0;
    const ImportSpy<decltype(::EnumResourceNamesW)> enumerate(
        VxDpiModule(), kKernel, "EnumResourceNamesW",
        [&](HMODULE module, LPCWSTR type, ENUMRESNAMEPROCW callback, LONG_PTR list)
        {
            const ShortMemory failing;
            const BOOL answer = enumerate.Original()(module, type, callback, list);
            allocations = failing.CallCount();
            return answer;
        });
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(2));
    EXPECT_GT(allocations, 0);
    EXPECT_TRUE(m_file.CanBeReplaced());
}

TEST_F(IconOfFile, AGroupThatIsNotFoundFreesTheModule)
{
    const FailKernelCall<decltype(::FindResourceW)> fail("FindResourceW", 1, nullptr);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(3));
}

TEST_F(IconOfFile, AGroupThatIsNotLoadedFreesTheModule)
{
    const FailKernelCall<decltype(::LoadResource)> fail("LoadResource", 1, nullptr);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(4));
}

TEST_F(IconOfFile, AGroupThatIsNotLockedFreesTheModule)
{
    const FailKernelCall<decltype(::LockResource)> fail("LockResource", 1, nullptr);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(5));
}

TEST_F(IconOfFile, AnImageThatIsNotFoundFreesTheModule)
{
    const FailKernelCall<decltype(::FindResourceW)> fail("FindResourceW", 2, nullptr);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(7));
}

TEST_F(IconOfFile, AnImageThatIsNotLoadedFreesTheModule)
{
    const FailKernelCall<decltype(::LoadResource)> fail("LoadResource", 2, nullptr);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(8));
}

TEST_F(IconOfFile, AnImageThatIsNotLockedFreesTheModule)
{
    const FailKernelCall<decltype(::LockResource)> fail("LockResource", 2, nullptr);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(9));
}

TEST_F(IconOfFile, AnIconThatIsNotMadeFreesTheModule)
{
    const FailNthCall<decltype(::CreateIconFromResourceEx)> fail(VxDpiModule(), kUser,
                                                                 "CreateIconFromResourceEx", 1, nullptr);
    EXPECT_EQ(CallsOf(m_file.Path(), 0, 24, false), CallsUntil(11));
}

TEST_F(IconOfFile, LeavesNothingBehindButTheIcon)
{
    EXPECT_NO_LEAK([this] { Load(m_file.Path(), 0, 24); });
}

TEST_F(IconOfFile, LeavesNothingBehindWithoutAnIcon)
{
    EXPECT_NO_LEAK(
        [this]
        {
            Load(nullptr, 0, 24);
            Load(m_file.Path(), -1, 24);
            Load(m_file.Path(), 1, 24);
            Load(L"missing.dll", 0, 24);
        });
}

TEST(IconOfModule, IsFoundInTheProgramByTheOrderOfIds)
{
    const std::wstring path = ProgramPath();
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(Load(path.c_str(), 0, 8).get())));
    EXPECT_TRUE(SamePixels(FramedPicture(24, 24), PixelsOf(Load(path.c_str(), 1, 8).get())));
    EXPECT_TRUE(SamePixels(FramedPicture(48, 48), PixelsOf(Load(path.c_str(), 2, 40).get())));
    EXPECT_EQ(Load(path.c_str(), 3, 8), nullptr);
}

TEST(IconOfModule, IsFoundInALibraryThatIsNotLoaded)
{
    const std::wstring path = ResourceDll::Path();
    ASSERT_EQ(::GetModuleHandleW(path.c_str()), nullptr);
    EXPECT_TRUE(SamePixels(ArgbImage(16, 16, kOtherColor), PixelsOf(Load(path.c_str(), 0, 8).get())));
    EXPECT_TRUE(SamePixels(ArgbImage(20, 20, kOtherColor), PixelsOf(Load(path.c_str(), 1, 8).get())));
    EXPECT_EQ(::GetModuleHandleW(path.c_str()), nullptr);
}

TEST(IconOfModule, IsFoundInALibraryThatIsLoadedAndStaysSo)
{
    const ResourceDll dll;
    EXPECT_TRUE(HasSize(Load(ResourceDll::Path().c_str(), 1, 8).get(), 20, 20));
    EXPECT_NE(::FindResourceW(dll.Module(), MAKEINTRESOURCEW(IDI_DLL_20), RT_GROUP_ICON), nullptr);
}

TEST(IconOfModule, GivesNothingWithoutAFile)
{
    EXPECT_EQ(Load(L"C:\\no such folder\\no such file.dll", 0, 16), nullptr);
    EXPECT_EQ(Load(L"", 0, 16), nullptr);
}

TEST(IconOfModule, GivesNothingForAFileThatIsNoModule)
{
    for (const Bytes& bytes : {Bytes(), Bytes(1, 'M'), Bytes{'M', 'Z'}, Bytes(4096, 0),
                               EncodePng(FramedPicture(16, 16)), EncodeIco({FramedPicture(16, 16)})})
    {
        const TemporaryFile file(bytes);
        EXPECT_EQ(Load(file.Path(), 0, 16), nullptr) << bytes.size();
        EXPECT_TRUE(file.CanBeReplaced());
    }
}

TEST(IconOfModule, GivesNothingForAModuleWithoutIcons)
{
    IconFileContent content;
    content.AddImage(1, IconImageData(FramedPicture(16, 16)));
    const TemporaryFile file(content);
    EXPECT_EQ(Load(file.Path(), 0, 16), nullptr);
    EXPECT_TRUE(file.CanBeReplaced());
}

TEST(IconOfModule, ManyGroupsAreCountedFrom0InTheOrderOfTheirIds)
{
    IconFileContent content;
    for (const int size : {10, 12, 14, 18, 20})
    {
        content.AddGroup(size * 1000, GroupDirectory({{size, size, size}}));
        content.AddImage(size, IconImageData(FramedPicture(size, size)));
    }
    const TemporaryFile file(content);
    EXPECT_TRUE(HasSize(Load(file.Path(), 0, 1).get(), 10, 10));
    EXPECT_TRUE(HasSize(Load(file.Path(), 1, 1).get(), 12, 12));
    EXPECT_TRUE(HasSize(Load(file.Path(), 2, 1).get(), 14, 14));
    EXPECT_TRUE(HasSize(Load(file.Path(), 3, 1).get(), 18, 18));
    EXPECT_TRUE(HasSize(Load(file.Path(), 4, 1).get(), 20, 20));
    EXPECT_EQ(Load(file.Path(), 5, 1), nullptr);
}

// The list of the groups grows with the second.
TEST(IconOfModule, WithoutMemoryTheListEndsAndNoLaterGroupMovesUp)
{
    if (!CanMemoryFail())
        GTEST_SKIP() << kMemoryCannotFail;
    IconFileContent content;
    for (const int size : {10, 12, 14})
    {
        content.AddGroup(size * 1000, GroupDirectory({{size, size, size}}));
        content.AddImage(size, IconImageData(FramedPicture(size, size)));
    }
    const TemporaryFile file(content);
    for (const int index : {0, 1, 2})
    {
        const ShortMemory shortMemory(2);
        EXPECT_EQ(Load(file.Path(), index, 1) != nullptr, index == 0) << index;
        EXPECT_GE(shortMemory.CallCount(), 2);
    }
    EXPECT_TRUE(HasSize(Load(file.Path(), 1, 1).get(), 12, 12));
}

namespace
{
// Three groups with names and one with an ID; each has one image of its own size.
IconFileContent NamedContent()
{
    IconFileContent content;
    content.AddGroup(L"MAIN", GroupDirectory({{20, 20, 1}}));
    content.AddGroup(L"A RATHER LONG NAME FOR AN ICON", GroupDirectory({{24, 24, 2}}));
    content.AddGroup(L"Z", GroupDirectory({{28, 28, 3}}));
    content.AddGroup(5, GroupDirectory({{32, 32, 4}}));
    for (const int id : {1, 2, 3, 4})
        content.AddImage(id, IconImageData(FramedPicture(16 + 4 * id, 16 + 4 * id)));
    return content;
}
}

// The platform hands a text out that lives only until it hands out the next.
TEST(IconWithAName, IsFoundLikeOneWithAnId)
{
    const TemporaryFile file(NamedContent());
    EXPECT_TRUE(HasSize(Load(file.Path(), 0, 1).get(), 24, 24));
    EXPECT_TRUE(HasSize(Load(file.Path(), 1, 1).get(), 20, 20));
    EXPECT_TRUE(HasSize(Load(file.Path(), 2, 1).get(), 28, 28));
    EXPECT_TRUE(HasSize(Load(file.Path(), 3, 1).get(), 32, 32));
    EXPECT_EQ(Load(file.Path(), 4, 1), nullptr);
}

TEST(IconWithAName, IsLookedUpByTheNameThatWasListed)
{
    const TemporaryFile file(NamedContent());
    const Lines calls = CallsOf(file.Path(), 1, 1, true);
    ASSERT_GE(calls.size(), 3u);
    EXPECT_EQ(calls[2], "FindResourceW(module1, \"MAIN\", @14)");
}

TEST(IconWithAName, LeavesNothingBehind)
{
    const TemporaryFile file(NamedContent());
    EXPECT_NO_LEAK([&] { Load(file.Path(), 0, 1); });
}

TEST(IconWithAName, MayHaveAnEmptyOneAndGivesNothingThen)
{
    IconFileContent content;
    content.AddGroup(L"", SquareGroup({16}));
    content.AddImage(1, IconImageData(FramedPicture(16, 16)));
    const TemporaryFile file(content);
    EXPECT_EQ(Load(file.Path(), 0, 16), nullptr);
    EXPECT_TRUE(file.CanBeReplaced());
}

TEST_F(IconGroupInFile, AmongEqualSizesTheFirstImageIsTaken)
{
    EXPECT_EQ(ChosenId(GroupDirectory({{48, 48, 3}, {32, 32, 2}, {32, 32, 1}}), 20), 2);
    EXPECT_EQ(ChosenId(GroupDirectory({{16, 16, 3}, {32, 32, 2}, {32, 32, 1}}), 64), 2);
}

// The size of the icon is what the directory says, not what the image is.
TEST_F(IconGroupInFile, TheLongerSideIsTheSizeThatTheIconGets)
{
    EXPECT_TRUE(HasSize(Choose(GroupDirectory({{16, 40, 1}}), 24).get(), 40, 40));
    EXPECT_TRUE(HasSize(Choose(GroupDirectory({{24, 16, 1}}), 16).get(), 24, 24));
}

TEST_F(IconGroupInFile, OnlyImagesOf256PixelsGiveNothingForATarget)
{
    EXPECT_EQ(ChosenId(GroupDirectory({{0, 0, 1}, {0, 0, 2}}), 1), 0);
    EXPECT_EQ(ChosenId(GroupDirectory({{0, 0, 1}}), 256), 0);
}

TEST_F(IconGroupInFile, OnlyImagesOf256PixelsGiveTheFirstForATargetOf0)
{
    EXPECT_EQ(ChosenId(GroupDirectory({{0, 0, 2}, {0, 0, 1}}), 0), 2);
}

TEST_F(IconGroupInFile, AnImageWithoutIdGivesWayToTheLargest)
{
    EXPECT_EQ(ChosenId(GroupDirectory({{32, 32, 0}, {48, 48, 2}, {64, 64, 3}}), 24), 3);
}

TEST_F(IconGroupInFile, AnImageThatIsMissingGivesNothing)
{
    EXPECT_EQ(ChosenId(GroupDirectory({{16, 16, 99}, {48, 48, 3}}), 16), 0);
}

TEST_F(IconGroupInFile, WithoutEntriesThereIsNothing)
{
    EXPECT_EQ(ChosenId(GroupDirectory({}), 16), 0);
    EXPECT_EQ(ChosenId(GroupDirectory({}, 0xFFFF), 16), 0);
}

TEST_F(IconGroupInFile, ThatAnnouncesMoreEntriesThanItHasGivesOneOfThose)
{
    EXPECT_EQ(ChosenId(GroupDirectory({{16, 16, 1}, {32, 32, 2}}, 0xFFFF), 24), 2);
    EXPECT_EQ(ChosenId(GroupDirectory({{16, 16, 1}, {32, 32, 2}}, 3), 64), 2);
}

TEST_F(IconGroupInFile, ThatAnnouncesFewerEntriesHasOnlyThose)
{
    EXPECT_EQ(ChosenId(GroupDirectory({{16, 16, 1}, {32, 32, 2}}, 1), 24), 1);
}

TEST_F(IconGroupInFile, ThatIsCutOffHasItsWholeEntries)
{
    Bytes directory = GroupDirectory({{16, 16, 1}, {32, 32, 2}});
    directory.pop_back();
    EXPECT_EQ(ChosenId(directory, 24), 1);
    directory.resize(19);
    EXPECT_EQ(ChosenId(directory, 24), 0);
    directory.resize(5);
    EXPECT_EQ(ChosenId(directory, 24), 0);
    directory.resize(0);
    EXPECT_EQ(ChosenId(directory, 24), 0);
}

namespace
{
// What becomes of an image that is not as it should be, without a crash and without anything left behind.
class DamagedIconFile : public testing::Test
{
protected:
    static void ExpectNothing(const Bytes& image)
    {
        IconFileContent content;
        content.AddGroup(1, SquareGroup({16}));
        content.AddImage(1, image);
        ExpectNothingOfFile(content.Encode());
    }

    static void ExpectNothingOfFile(const Bytes& bytes)
    {
        const TemporaryFile file(bytes);
        EXPECT_NO_LEAK([&] { EXPECT_EQ(Load(file.Path(), 0, 16), nullptr); });
        EXPECT_TRUE(file.CanBeReplaced());
    }

    static Bytes Image() { return IconImageData(FramedPicture(16, 16)); }
};
}

TEST_F(DamagedIconFile, AnEmptyImageGivesNothing)
{
    ExpectNothing({});
}

TEST_F(DamagedIconFile, JunkInPlaceOfAnImageGivesNothing)
{
    ExpectNothing(Bytes(1, 0x28));
    ExpectNothing(Bytes(39, 0xFF));
    ExpectNothing(Bytes(1000, 0x00));
    ExpectNothing(Bytes(1000, 0xFF));
}

TEST_F(DamagedIconFile, AnImageThatIsCutOffGivesNothing)
{
    Bytes image = Image();
    image.resize(60);
    ExpectNothing(image);
    Bytes png = EncodePng(FramedPicture(16, 16));
    png.resize(20);
    ExpectNothing(png);
}

// The header's width and height are far beyond the bytes that follow.
TEST_F(DamagedIconFile, AnImageThatClaimsToBeHugeGivesNothing)
{
    Bytes image = Image();
    image[6] = 0xFF;
    image[10] = 0xFF;
    ExpectNothing(image);
}

namespace
{
constexpr DWORD kFarTooMuch = 0xFFFFFFF0;

// Many images of 16 pixels and at last one of 32, in some 8 KB.
Bytes LongDirectory()
{
    std::vector<GroupEntry> entries(600, GroupEntry{16, 16, 1});
    entries.back() = {32, 32, 2};
    return GroupDirectory(entries);
}

Bytes WithoutLast(Bytes bytes, std::size_t count)
{
    bytes.resize(bytes.size() - count);
    return bytes;
}
}

TEST_F(DamagedIconFile, ADirectoryThatClaimsMoreThanTheFileHasIsReadToItsEnd)
{
    IconFileContent content;
    content.AddImage(1, Image());
    content.AddWrongGroup(1, {GroupDirectory({{16, 16, 1}}, 0xFFFF), kFarTooMuch});
    const TemporaryFile file(content);
    EXPECT_TRUE(HasSize(Load(file.Path(), 0, 32).get(), 16, 16));
    EXPECT_TRUE(file.CanBeReplaced());
}

TEST_F(DamagedIconFile, ADirectoryWhoseFileIsCutOffIsReadToItsEnd)
{
    IconFileContent content;
    content.AddImage(1, Image());
    content.AddImage(2, IconImageData(FramedPicture(32, 32)));
    content.AddGroup(1, LongDirectory());
    const TemporaryFile whole(content);
    EXPECT_TRUE(HasSize(Load(whole.Path(), 0, 32).get(), 32, 32));
    const TemporaryFile cut(WithoutLast(content.Encode(), 6000));
    EXPECT_TRUE(HasSize(Load(cut.Path(), 0, 32).get(), 16, 16));
}

namespace
{
// While it lives, the library is told of the pages of its memory one by one, and of how many a mapping has.
class PageByPage : public ImportSpy<decltype(::VirtualQuery)>
{
public:
    explicit PageByPage(int pageCount)
        : ImportSpy(VxDpiModule(), kKernel, "VirtualQuery",
                    [this, pageCount](LPCVOID pAddress, PMEMORY_BASIC_INFORMATION pInfo, SIZE_T size)
                    {
                        const SIZE_T result = Original()(pAddress, pInfo, size);
                        const auto address = reinterpret_cast<ULONG_PTR>(pAddress);
                        pInfo->BaseAddress = reinterpret_cast<void*>(address & ~(kPageSize - 1));
                        pInfo->RegionSize = kPageSize;
                        if (CallCount() > pageCount)
                            pInfo->AllocationBase = nullptr;
                        return result;
                    })
    {
    }

private:
    static constexpr ULONG_PTR kPageSize = 0x1000;
};

IconFileContent LongContent()
{
    IconFileContent content;
    content.AddImage(1, IconImageData(FramedPicture(16, 16)));
    content.AddImage(2, IconImageData(FramedPicture(32, 32)));
    content.AddGroup(1, LongDirectory());
    return content;
}
}

TEST_F(DamagedIconFile, ADirectoryOnSeveralPagesIsReadWhole)
{
    const TemporaryFile file(LongContent());
    const PageByPage pages(100);
    EXPECT_TRUE(HasSize(Load(file.Path(), 0, 32).get(), 32, 32));
}

TEST_F(DamagedIconFile, ADirectoryIsNotReadBeyondThePagesOfItsFile)
{
    const TemporaryFile file(LongContent());
    const PageByPage pages(1);
    EXPECT_TRUE(HasSize(Load(file.Path(), 0, 32).get(), 16, 16));
}

TEST_F(DamagedIconFile, ADirectoryWhosePagesAreNotToldIsReadAsFarAsTheyAre)
{
    IconFileContent content;
    content.AddImage(1, Image());
    content.AddWrongGroup(1, {GroupDirectory({{16, 16, 1}}, 0xFFFF), kFarTooMuch});
    const TemporaryFile file(content);
    const void* pEnd = nullptr;
    const ImportSpy<decltype(::VirtualQuery)> pages(
        VxDpiModule(), kKernel, "VirtualQuery",
        [&](LPCVOID pAddress, PMEMORY_BASIC_INFORMATION pInfo, SIZE_T size) -> SIZE_T
        {
            if (pAddress == pEnd)
                return 0;
            const SIZE_T result = pages.Original()(pAddress, pInfo, size);
            pEnd = static_cast<const BYTE*>(pInfo->BaseAddress) + pInfo->RegionSize;
            return result;
        });
    EXPECT_TRUE(HasSize(Load(file.Path(), 0, 32).get(), 16, 16));
    EXPECT_GE(pages.CallCount(), 2);
}

// The second group is there only to be cut off: the first one's directory would be in it.
TEST_F(DamagedIconFile, ADirectoryBehindTheEndOfTheFileGivesNothing)
{
    const Bytes directory = SquareGroup({16});
    IconFileContent content;
    content.AddImage(1, Image());
    content.AddWrongGroup(1, {directory, static_cast<DWORD>(directory.size()), 16000});
    content.AddGroup(2, Bytes(20000));
    ExpectNothingOfFile(WithoutLast(content.Encode(), 15000));
}

TEST_F(DamagedIconFile, AnImageThatClaimsMoreThanTheFileHasIsReadToItsEnd)
{
    IconFileContent content;
    content.AddGroup(1, SquareGroup({16}));
    content.AddWrongImage(1, {Image(), kFarTooMuch});
    const TemporaryFile file(content);
    const OwnedIcon icon = Load(file.Path(), 0, 16);
    EXPECT_TRUE(SamePixels(FramedPicture(16, 16), PixelsOf(icon.get())));
}

// Only the header of a picture of 16 KB.
TEST_F(DamagedIconFile, AnImageWhosePixelsWouldBeBehindTheFileGivesNothing)
{
    Bytes header = IconImageData(FramedPicture(64, 64));
    header.resize(40);
    IconFileContent content;
    content.AddGroup(1, SquareGroup({64}));
    content.AddWrongImage(1, {header, kFarTooMuch});
    ExpectNothingOfFile(content.Encode());
}

namespace
{
BOOL CALLBACK CountName(HMODULE, LPCWSTR, LPWSTR, LONG_PTR counter)
{
    ++*reinterpret_cast<int*>(counter);
    return TRUE;
}

// 0 for a file that is no module.
int CountGroups(const std::wstring& path)
{
    int count = 0;
    const HMODULE module = ::LoadLibraryExW(path.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    if (module == nullptr)
        return 0;
    ::EnumResourceNamesW(module, RT_GROUP_ICON, CountName, reinterpret_cast<LONG_PTR>(&count));
    ::FreeLibrary(module);
    return count;
}

struct IconCounts
{
    int groups = 0;
    int icons = 0;
};

// Every group of a module of the system, for several sizes.
IconCounts ReadIcons(const wchar_t* fileName)
{
    wchar_t folder[MAX_PATH] = {};
    ::GetSystemDirectoryW(folder, MAX_PATH);
    const std::wstring path = std::wstring(folder) + L"\\" + fileName;
    IconCounts counts;
    counts.groups = CountGroups(path);
    for (int index = 0; index < counts.groups; ++index)
    {
        for (const int size : {0, 16, 24, 48, 256})
            counts.icons += Load(path.c_str(), index, size) != nullptr ? 1 : 0;
    }
    EXPECT_EQ(Load(path.c_str(), counts.groups, 16), nullptr);
    return counts;
}
}

TEST(IconsOfTheSystem, OfLibrariesAndProgramsAreAllRead)
{
    int groups = 0;
    for (const wchar_t* const fileName : {L"shell32.dll", L"user32.dll", L"comdlg32.dll", L"notepad.exe"})
    {
        const IconCounts counts = ReadIcons(fileName);
        groups += counts.groups;
        EXPECT_GE(counts.icons, counts.groups * 4) << fileName;
    }
    EXPECT_GE(groups, 5);
}

TEST(IconsOfTheSystem, LeaveNothingBehindWhenTheyAreRead)
{
    EXPECT_NO_LEAK([] { ReadIcons(L"notepad.exe"); });
}

TEST(IconsOfTheSystem, AreNotInALibraryWithoutAny)
{
    EXPECT_EQ(ReadIcons(L"gdi32.dll").groups, 0);
}
