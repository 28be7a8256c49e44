#pragma once

#include "support/ArgbImage.h"
#include "support/CallLog.h"

#include <windows.h>

#include <wincodec.h>

#include <memory>

enum class ImagingStep
{
    None,
    CreateSource,
    CreateScaler,
    InitializeScaler,
    CreateConverter,
    InitializeConverter,
    GetSize,
    CopyPixels
};

// An imaging component of the tests' own. Whatever icon and size it is asked for, it answers with one
// picture; each call that matters is written into a log, in which the objects are named "source", "scaler"
// and "converter", and among the other calls of a trace.
class FakeImaging
{
public:
    FakeImaging(CallLog& log, const ArgbImage& picture);
    ~FakeImaging();

    FakeImaging(const FakeImaging&) = delete;
    FakeImaging& operator=(const FakeImaging&) = delete;

    // Belongs to this object; starts with one reference.
    IWICImagingFactory* Factory() const;
    long FactoryReferences() const;

    // References to the three other objects together.
    long References() const;

    // Makes one step fail from now on, the one before succeed again.
    void FailAt(ImagingStep step);

private:
    class Objects;

    std::unique_ptr<Objects> m_objects;
};
