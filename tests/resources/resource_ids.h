#pragma once

// Integer IDs of the resources of the test programs (tests.rc) and of vxdpi_test_resources.dll (dll.rc).
// The pictures are described in support/TestResources.cpp. Read by the resource compiler, too.

// Type "PNG", RGBA with a half-transparent frame and transparent corners (FramedPicture).
#define IDR_PNG_16 101
#define IDR_PNG_24 102
#define IDR_PNG_32 103
#define IDR_PNG_48 104
#define IDR_PNG_15 105

// Type "PNG", strips of three square cells (StripPicture).
#define IDR_PNG_STRIP_16 111
#define IDR_PNG_STRIP_24 112
#define IDR_PNG_STRIP_32 113

// Type "PNG", opaque (OpaquePicture): RGBA of one column, RGB.
#define IDR_PNG_COLUMN 121
#define IDR_PNG_RGB_16 122
#define IDR_PNG_RGB_32 123

// Type "PNG", FramedPicture(32, 32) whose file says 144 dots per inch.
#define IDR_PNG_144_DPI 124

// Type "PNG", none of them readable: cut off in the middle, wrong checksum, no PNG at all.
#define IDR_PNG_TRUNCATED 131
#define IDR_PNG_DAMAGED 132
#define IDR_PNG_GARBAGE 133

// Type "PNG", an icon of the Tango library in three sizes, drawn separately.
#define IDR_PNG_SAVE_16 141
#define IDR_PNG_SAVE_22 142
#define IDR_PNG_SAVE_32 143

// Type "IMAGE": the ID of a PNG above, but another picture (OpaquePicture(24, 24)); and one of its own.
#define IDR_IMAGE_SHARED_ID IDR_PNG_16
#define IDR_IMAGE_ONLY 151

// Bitmaps: 24 bits per pixel (OpaquePicture); 8 bits per pixel with the colours that toolbars map
// (MappedColorsPicture).
#define IDB_16 201
#define IDB_24 202
#define IDB_32 203
#define IDB_MAPPED_COLORS 204

// Icons (FramedPicture): sizes 16 and 32; 24 and 48; 16, 32, 48 and 256 (stored as PNG).
#define IDI_16_32 301
#define IDI_24_48 302
#define IDI_LARGE 303

// In no module.
#define IDR_MISSING 999

// vxdpi_test_resources.dll: pictures of kOtherColor under an ID that the program has as well, and under its
// own.
#define IDR_DLL_SHARED_ID IDR_PNG_16
#define IDR_DLL_PNG_24 401
#define IDB_DLL_SHARED_ID IDB_16
#define IDI_DLL_SHARED_ID IDI_16_32
#define IDI_DLL_20 402
