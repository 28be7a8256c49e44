#include <afxwin.h>

#include <gtest/gtest.h>

#include "ModuleResources.h"

namespace
{

TEST(ExtractSubStringTest, CutsOutThePieceOfThatIndex)
{
    CString piece;
    EXPECT_TRUE(AfxExtractSubString(piece, L"a\nbc\nd", 1));
    EXPECT_STREQ(L"bc", piece);
    EXPECT_TRUE(AfxExtractSubString(piece, L"a;bc;d", 2, L';'));
    EXPECT_STREQ(L"d", piece);
}

TEST(ExtractSubStringTest, AnEmptyPieceIsAPiece)
{
    CString piece(L"before");
    EXPECT_TRUE(AfxExtractSubString(piece, L"a\n\nb", 1));
    EXPECT_STREQ(L"", piece);
}

TEST(ExtractSubStringTest, FailsBehindTheLastPiece)
{
    CString piece(L"before");
    EXPECT_FALSE(AfxExtractSubString(piece, L"a\nb", 2));
    EXPECT_STREQ(L"", piece);
}

TEST(FormatStringTest, ReplacesOnlyTheFirstPlaceholder)
{
    CString text;
    AfxFormatString1(text, IDS_ONE_REPLACEMENT, L"%2");
    EXPECT_STREQ(L"<%2> and %2 and 100%", text);
}

TEST(FormatStringTest, ReplacesTwoPlaceholdersInAnyOrder)
{
    CString text;
    AfxFormatString2(text, IDS_TWO_REPLACEMENTS, L"one", L"two");
    EXPECT_STREQ(L"two before one", text);
}

} // namespace
