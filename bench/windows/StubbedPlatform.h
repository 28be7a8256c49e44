#pragma once

#include "ImportTable.h"

/// What the stand-ins answer where rows differ. Lengths in pixels.
struct PlatformAnswers
{
    SIZE picture;   ///< of a picture that is decoded
    int lockedSide; ///< of a bitmap that is locked; 0 leaves nothing to do for the loops over pixels
    int childCount; ///< of any window
};

/// While it lives, the drawing, window, resource and object functions of the platform are not called by the
/// library, the framework and the program: stand-ins answer at once, with success. One at a time.
class StubbedPlatform
{
public:
    explicit StubbedPlatform(const PlatformAnswers& answers);

private:
    ReplacedImports m_replaced;
};

/// Counts how often the library allocates memory for itself while it lives. One at a time.
class AllocationCount
{
public:
    /// Throws std::runtime_error when the library's allocations can't be seen.
    AllocationCount();

    int Get() const;

private:
    ReplacedImports m_replaced;
};
