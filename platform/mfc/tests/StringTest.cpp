#include <afxwin.h>

#include <gtest/gtest.h>

#include <map>

#include "ModuleResources.h"
#include "support/HandleCount.h"

namespace
{

static_assert(sizeof(CString) == sizeof(void*),
              "strings are members of classes that others are compiled against");

TEST(StringTest, IsEmptyByDefault)
{
    const CString text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_STREQ(L"", text);
    EXPECT_EQ(0, text.GetLength());
}

TEST(StringTest, ANullPointerMakesAnEmptyString)
{
    const CString text(static_cast<LPCTSTR>(nullptr));
    EXPECT_STREQ(L"", text);
}

TEST(StringTest, IsMadeFromPartOfAText)
{
    EXPECT_STREQ(L"ab", CString(L"abcd", 2));
}

TEST(StringTest, IsMadeFromARepeatedCharacter)
{
    EXPECT_STREQ(L"xxx", CString(L'x', 3));
    EXPECT_STREQ(L"x", CString(L'x'));
    EXPECT_STREQ(L"", CString(L'x', 0));
}

TEST(StringTest, ConvertsFromNarrowText)
{
    EXPECT_STREQ(L"narrow", CString("narrow"));
    CString text;
    text = "assigned";
    text += " and added";
    EXPECT_STREQ(L"assigned and added", text);
    EXPECT_STREQ(L"na", CString("narrow", 2));
}

TEST(StringTest, ConvertsToNarrowText)
{
    EXPECT_STREQ("wide", CStringA(L"wide"));
}

TEST(StringTest, AnIntegerInPlaceOfAPointerLoadsTheResource)
{
    EXPECT_STREQ(L"of the program", CString(MAKEINTRESOURCE(IDS_PROGRAM_ONLY)));
}

TEST(StringTest, ACopyKeepsItsTextWhenTheOriginalChanges)
{
    CString original(L"text");
    const CString copy(original);
    original.SetAt(0, L'n');
    EXPECT_STREQ(L"next", original);
    EXPECT_STREQ(L"text", copy);
}

TEST(StringTest, AssignedToItselfItStays)
{
    CString text(L"text");
    const CString& same = text;
    text = same;
    EXPECT_STREQ(L"text", text);
}

TEST(StringTest, TakesAPartOfItself)
{
    CString text(L"one two");
    text = text.GetString() + 4;
    EXPECT_STREQ(L"two", text);
}

TEST(StringTest, AppendsItself)
{
    CString text(L"abc");
    text += text;
    text += text.GetString() + 4;
    EXPECT_STREQ(L"abcabcbc", text);
}

TEST(StringTest, AppendsOneByOne)
{
    CString text;
    for (int i = 0; i < 1000; ++i)
        text.AppendChar(static_cast<wchar_t>(L'a' + i % 26));
    EXPECT_EQ(1000, text.GetLength());
    EXPECT_EQ(L'a' + 999 % 26, text[999]);
    EXPECT_EQ(L'\0', text[1000]);
}

TEST(StringTest, KeepsEmbeddedNullCharacters)
{
    const CString text(L"a\0b", 3);
    const CString copy = text + text;
    EXPECT_EQ(6, copy.GetLength());
    EXPECT_EQ(L'b', copy[5]);
}

TEST(StringTest, ReadsItsTerminatorButNothingBehind)
{
    const CString text(L"ab");
    EXPECT_EQ(L'\0', text.GetAt(2));
    EXPECT_THROW(text.GetAt(3), CInvalidArgException*);
    EXPECT_THROW(text.GetAt(-1), CInvalidArgException*);
}

TEST(StringTest, DoesNotWriteItsTerminator)
{
    CString text(L"ab");
    EXPECT_THROW(text.SetAt(2, L'x'), CInvalidArgException*);
    EXPECT_STREQ(L"ab", text);
}

TEST(StringTest, ABufferIsMeasuredWhenReleased)
{
    CString text(L"before");
    wchar_t* const pBuffer = text.GetBuffer(20);
    EXPECT_STREQ(L"before", pBuffer);
    ::lstrcpyW(pBuffer, L"written behind");
    text.ReleaseBuffer();
    EXPECT_EQ(14, text.GetLength());
    EXPECT_STREQ(L"written behind", text);
}

TEST(StringTest, ABufferOfACopyLeavesTheOriginal)
{
    const CString original(L"text");
    CString copy(original);
    copy.GetBuffer()[0] = L'n';
    copy.ReleaseBuffer();
    EXPECT_STREQ(L"text", original);
    EXPECT_STREQ(L"next", copy);
}

TEST(StringTest, ReleaseBufferCutsToTheGivenLength)
{
    CString text(L"abcdef");
    text.GetBuffer();
    text.ReleaseBuffer(3);
    EXPECT_STREQ(L"abc", text);
}

TEST(StringTest, SetsALengthBeyondTheTextForWriting)
{
    CString text(L"ab");
    ::CopyMemory(text.GetBufferSetLength(5), L"vwxyz", 5 * sizeof(wchar_t));
    text.ReleaseBufferSetLength(4);
    EXPECT_STREQ(L"vwxy", text);
}

TEST(StringTest, TruncateNeverLengthens)
{
    CString text(L"abcd");
    text.Truncate(2);
    EXPECT_STREQ(L"ab", text);
    text.Truncate(10);
    EXPECT_EQ(2, text.GetLength());
}

TEST(StringTest, PreallocatesAndFreesRoom)
{
    CString text(L"abc");
    text.Preallocate(100);
    EXPECT_LE(100, text.GetAllocLength());
    EXPECT_STREQ(L"abc", text);
    text.FreeExtra();
    EXPECT_EQ(3, text.GetAllocLength());
    EXPECT_STREQ(L"abc", text);
}

TEST(StringTest, AddsTextsAndCharactersOnBothSides)
{
    const CString text(L"m");
    EXPECT_STREQ(L"am", L"a" + text);
    EXPECT_STREQ(L"ma", text + L"a");
    EXPECT_STREQ(L"mm", text + text);
    EXPECT_STREQ(L"ma", text + L'a');
    EXPECT_STREQ(L"am", L'a' + text);
    EXPECT_STREQ(L"ma", text + 'a');
    EXPECT_STREQ(L"am", 'a' + text);
}

TEST(StringTest, ComparesByCharacterCode)
{
    const CString text(L"b");
    EXPECT_TRUE(text == L"b" && L"b" == text && text == CString(L"b"));
    EXPECT_TRUE(text != L"B" && L"B" != text && text != CString(L"c"));
    EXPECT_TRUE(text < L"c" && L"a" < text && text <= CString(L"b"));
    EXPECT_TRUE(text > L"B" && L"c" > text && text >= CString(L"b"));
    EXPECT_GT(0, text.Compare(L"c"));
    EXPECT_LT(0, text.Compare(L"a"));
}

TEST(StringTest, IsAKeyOfAMap)
{
    const std::map<CString, int> map = {{L"two", 2}, {L"one", 1}};
    EXPECT_EQ(2, map.at(L"two"));
}

TEST(StringTest, ComparesWithoutRegardToCase)
{
    EXPECT_EQ(0, CString(L"Text").CompareNoCase(L"tEXT"));
    EXPECT_NE(0, CString(L"Text").CompareNoCase(L"texts"));
}

TEST(StringTest, CollatesEqualTextsAsEqual)
{
    EXPECT_EQ(0, CString(L"text").Collate(L"text"));
    EXPECT_EQ(0, CString(L"TEXT").CollateNoCase(L"text"));
}

TEST(StringTest, FindsFromAnIndex)
{
    const CString text(L"abcabc");
    EXPECT_EQ(1, text.Find(L"bc"));
    EXPECT_EQ(4, text.Find(L"bc", 2));
    EXPECT_EQ(-1, text.Find(L"bc", 5));
    EXPECT_EQ(-1, text.Find(L"x"));
    EXPECT_EQ(3, text.Find(L'a', 1));
    EXPECT_EQ(-1, text.Find(L'a', 4));
    EXPECT_EQ(-1, text.Find(L'a', -1));
    EXPECT_EQ(-1, text.Find(L'a', 7));
}

TEST(StringTest, FindsBackwardsAndAnyOf)
{
    const CString text(L"abcabc");
    EXPECT_EQ(4, text.ReverseFind(L'b'));
    EXPECT_EQ(-1, text.ReverseFind(L'x'));
    EXPECT_EQ(1, text.FindOneOf(L"cb"));
    EXPECT_EQ(-1, text.FindOneOf(L"xyz"));
}

TEST(StringTest, CutsOutPartsThatExist)
{
    const CString text(L"abcdef");
    EXPECT_STREQ(L"ab", text.Left(2));
    EXPECT_STREQ(L"abcdef", text.Left(20));
    EXPECT_STREQ(L"", text.Left(-1));
    EXPECT_STREQ(L"ef", text.Right(2));
    EXPECT_STREQ(L"abcdef", text.Right(20));
    EXPECT_STREQ(L"", text.Right(-1));
    EXPECT_STREQ(L"cdef", text.Mid(2));
    EXPECT_STREQ(L"cd", text.Mid(2, 2));
    EXPECT_STREQ(L"ef", text.Mid(4, 20));
    EXPECT_STREQ(L"", text.Mid(20));
}

TEST(StringTest, SpansCharactersOfASet)
{
    const CString text(L"aabbcc");
    EXPECT_STREQ(L"aabb", text.SpanIncluding(L"ba"));
    EXPECT_STREQ(L"aa", text.SpanExcluding(L"bc"));
    EXPECT_STREQ(L"aabbcc", text.SpanExcluding(L"x"));
}

TEST(StringTest, TokenizeSkipsLeadingDelimitersAndEndsWithMinusOne)
{
    const CString text(L",,one, two,");
    int iStart = 0;
    EXPECT_STREQ(L"one", text.Tokenize(L", ", iStart));
    EXPECT_STREQ(L"two", text.Tokenize(L", ", iStart));
    EXPECT_STREQ(L"", text.Tokenize(L", ", iStart));
    EXPECT_EQ(-1, iStart);
}

TEST(StringTest, TokenizeFindsTheLastTokenWithoutDelimiter)
{
    const CString text(L"a b");
    int iStart = 0;
    text.Tokenize(L" ", iStart);
    EXPECT_STREQ(L"b", text.Tokenize(L" ", iStart));
    EXPECT_STREQ(L"", text.Tokenize(L" ", iStart));
    EXPECT_EQ(-1, iStart);
}

TEST(StringTest, InsertsAndTellsTheNewLength)
{
    CString text(L"ad");
    EXPECT_EQ(4, text.Insert(1, L"bc"));
    EXPECT_STREQ(L"abcd", text);
    EXPECT_EQ(5, text.Insert(100, L'e'));
    EXPECT_STREQ(L"abcde", text);
    EXPECT_EQ(6, text.Insert(-1, L'_'));
    EXPECT_STREQ(L"_abcde", text);
}

TEST(StringTest, DeletesWhatExists)
{
    CString text(L"abcdef");
    EXPECT_EQ(4, text.Delete(1, 2));
    EXPECT_STREQ(L"adef", text);
    EXPECT_EQ(2, text.Delete(2, 100));
    EXPECT_STREQ(L"ad", text);
    EXPECT_EQ(1, text.Delete(0));
    EXPECT_EQ(1, text.Delete(5));
    EXPECT_STREQ(L"d", text);
}

TEST(StringTest, RemoveAndReplaceTellHowMany)
{
    CString text(L"a-b-c");
    EXPECT_EQ(2, text.Replace(L'-', L'+'));
    EXPECT_STREQ(L"a+b+c", text);
    EXPECT_EQ(2, text.Remove(L'+'));
    EXPECT_STREQ(L"abc", text);
    EXPECT_EQ(0, text.Remove(L'x'));
    EXPECT_EQ(0, text.Replace(L'x', L'y'));
}

TEST(StringTest, ReplacesTextsOfAnotherLengthAndNotWithinReplacements)
{
    CString text(L"aXbX");
    EXPECT_EQ(2, text.Replace(L"X", L"XX"));
    EXPECT_STREQ(L"aXXbXX", text);
    EXPECT_EQ(2, text.Replace(L"XX", L""));
    EXPECT_STREQ(L"ab", text);
    EXPECT_EQ(0, text.Replace(L"A", L"x"));
    EXPECT_EQ(0, text.Replace(L"", L"x"));
}

TEST(StringTest, ChangesCaseAndDirection)
{
    EXPECT_STREQ(L"mixed 1", CString(L"MiXed 1").MakeLower());
    EXPECT_STREQ(L"MIXED 1", CString(L"MiXed 1").MakeUpper());
    EXPECT_STREQ(L"cba", CString(L"abc").MakeReverse());
}

TEST(StringTest, TrimsWhiteSpaceOnTheAskedSide)
{
    EXPECT_STREQ(L"a b", CString(L" \t\na b \r\n").Trim());
    EXPECT_STREQ(L"a ", CString(L" a ").TrimLeft());
    EXPECT_STREQ(L" a", CString(L" a ").TrimRight());
    EXPECT_STREQ(L"", CString(L"  ").Trim());
}

TEST(StringTest, TrimsGivenCharacters)
{
    EXPECT_STREQ(L"a", CString(L"xxaxx").Trim(L'x'));
    EXPECT_STREQ(L"axx", CString(L"xxaxx").TrimLeft(L'x'));
    EXPECT_STREQ(L"xxa", CString(L"xxaxx").TrimRight(L'x'));
    EXPECT_STREQ(L"a", CString(L"xyayx").Trim(L"yx"));
    EXPECT_STREQ(L"ayx", CString(L"xyayx").TrimLeft(L"yx"));
    EXPECT_STREQ(L"xya", CString(L"xyayx").TrimRight(L"yx"));
}

TEST(StringTest, FormatsLikePrintf)
{
    CString text;
    text.Format(L"%d|%s|%hs|%08.3f|%x|%c", -5, L"wide", "narrow", 1.5, 255u, L'c');
    EXPECT_STREQ(L"-5|wide|narrow|0001.500|ff|c", text);
}

TEST(StringTest, FormatsBeyondAnyFixedBuffer)
{
    const CString filling(L'x', 5000);
    CString text;
    text.Format(L"<%s>", filling.GetString());
    EXPECT_EQ(5002, text.GetLength());
    EXPECT_EQ(L'>', text[5001]);
}

TEST(StringTest, AppendsFormattedText)
{
    CString text(L"a");
    text.AppendFormat(L"%d", 1);
    text.AppendFormat(L"%s", L"b");
    EXPECT_STREQ(L"a1b", text);
}

TEST(StringTest, FormatsWithAFormatFromTheResources)
{
    CString text;
    text.Format(IDS_FORMAT, 3, L"seven");
    EXPECT_STREQ(L"3 of seven", text);
    EXPECT_THROW(text.Format(IDS_MISSING), CInvalidArgException*);
}

TEST(StringTest, FormatsMessagesWithNumberedParameters)
{
    CString text;
    text.FormatMessage(L"%2 after %1", L"one", L"two");
    EXPECT_STREQ(L"two after one", text);
}

TEST(StringTest, NarrowStringsFormatNarrowText)
{
    CStringA text;
    text.Format("%d %s", 1, "a");
    EXPECT_STREQ("1 a", text);
}

TEST(StringTest, LoadsAStringResource)
{
    CString text;
    EXPECT_TRUE(text.LoadString(IDS_PROGRAM_ONLY));
    EXPECT_STREQ(L"of the program", text);
}

TEST(StringTest, KeepsItsTextWhenTheResourceIsMissing)
{
    CString text(L"kept");
    EXPECT_FALSE(text.LoadString(IDS_MISSING));
    EXPECT_FALSE(text.LoadString(IDS_PROGRAM_ONLY + 9)); // its block exists
    EXPECT_STREQ(L"kept", text);
}

TEST(StringTest, FreesItsStorage)
{
    EXPECT_NO_LEAK(
        []
        {
            CString text(L"text");
            CString copy(text);
            copy += L" that grows";
            copy.Replace(L"text", L"longer text");
            text = copy.Mid(2);
            copy.Empty();
            text.Format(L"%d", 1);
        });
}

TEST(StringTest, MakesASystemString)
{
    const BSTR bstr = CString(L"text").AllocSysString();
    EXPECT_STREQ(L"text", bstr);
    EXPECT_EQ(4u, ::SysStringLen(bstr));
    ::SysFreeString(bstr);
}

} // namespace
