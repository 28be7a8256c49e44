#pragma once

#include "resources/resource_ids.h"
#include "support/ImageFiles.h"
#include "support/TestPictures.h"

#include <string>
#include <vector>

enum class ResourceKind
{
    Png,   // type "PNG"
    Image, // type "IMAGE"
    Bitmap,
    Icon
};

enum class ResourcePlace
{
    Program,
    Dll // vxdpi_test_resources.dll
};

struct TestResource
{
    ResourcePlace place;
    ResourceKind kind;
    int id;
    std::string fileName; // below tests/resources
    Bytes bytes;          // of the file
};

// The resources that are computed, i.e. all but the Tango icons. Needs nothing of Windows: the program that
// writes the files uses it as well as the test that compares them.
std::vector<TestResource> ComputedResources();
