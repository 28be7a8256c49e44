#pragma once

#include "support/HandleCount.h"

#include <windows.h>

#include <vector>

// Contexts that earlier tests released are given out again before new ones are made: as long as they are held
// here, each context that is obtained is a new one, and counts.
class HeldContexts
{
public:
    explicit HeldContexts(HWND hwnd) : m_hwnd(hwnd)
    {
        for (int batch = 0; batch < kMostBatches && !HoldBatchOfNewOnes(); ++batch)
            continue;
    }

    HeldContexts(const HeldContexts&) = delete;
    HeldContexts& operator=(const HeldContexts&) = delete;

    ~HeldContexts()
    {
        for (const HDC hdc : m_contexts)
            ::ReleaseDC(m_hwnd, hdc);
    }

private:
    static constexpr int kMostBatches = 100;
    static constexpr int kBatch = 16;

    bool HoldBatchOfNewOnes()
    {
        const long before = HandleCount::Now()[HandleKind::WindowDc];
        for (int i = 0; i < kBatch; ++i)
            m_contexts.push_back(::GetDC(m_hwnd));
        return !HandleCount::IsKnown(HandleKind::WindowDc) ||
               HandleCount::Now()[HandleKind::WindowDc] - before == kBatch;
    }

    HWND m_hwnd;
    std::vector<HDC> m_contexts;
};
