#pragma once

#include <windows.h>

#include <gtest/gtest.h>

inline testing::AssertionResult IsRect(const RECT& rect, const RECT& expected)
{
    if (::EqualRect(&rect, &expected))
        return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "{" << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom << "}";
}
