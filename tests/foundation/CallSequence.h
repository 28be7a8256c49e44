#pragma once

#include "foundation/LibraryModule.h"
#include "support/CallTrace.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <string>

// Tests that pin whatever the library calls of the platform and the framework: names alone, but all of them
// in their order. A call more or less, or another order, is a failure. Arguments are the business of other
// tests.
//
//     EXPECT_TRUE(AreCalls(CallsOf([&] { VxSafeGetDpiForWindow(hWnd); }), {"IsWindow", "GetDpiForWindow"}));

// The calls that work makes from the library, or from a copy of it.
template<typename Work>
CallNames CallsOf(HMODULE library, const Work& work)
{
    const CallTrace trace({library}, FrameworkModule());
    work();
    return trace.Calls();
}

template<typename Work>
CallNames CallsOf(const Work& work)
{
    return CallsOf(VxDpiModule(), work);
}

inline std::string ListOf(const CallNames& names)
{
    std::string list;
    for (const std::string& name : names)
        list += (list.empty() ? "" : ", ") + name;
    return "{" + list + "}";
}

inline testing::AssertionResult AreCalls(const CallNames& actual, const CallNames& expected)
{
    if (actual == expected)
        return testing::AssertionSuccess();
    std::size_t same = 0;
    while (same < actual.size() && same < expected.size() && actual[same] == expected[same])
        ++same;
    return testing::AssertionFailure()
           << "call " << same + 1 << " is " << (same < actual.size() ? actual[same] : "none")
           << " instead of " << (same < expected.size() ? expected[same] : "none") << " in "
           << ListOf(actual);
}

inline CallNames InOrder(std::initializer_list<CallNames> parts)
{
    CallNames all;
    for (const CallNames& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

inline CallNames Times(std::size_t count, const CallNames& part)
{
    CallNames all;
    for (std::size_t i = 0; i < count; ++i)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

// For work that goes through the framework.
class FrameworkCallSequence : public testing::Test
{
protected:
    void SetUp() override
    {
        if (!CallTrace({VxDpiModule()}, FrameworkModule()).FollowsFramework())
            GTEST_SKIP() << "a framework that is partly inline, and else imported by number, is not seen";
    }
};
