#pragma once

/// @file
/// Marks what the library exports: classes and free functions of the public headers, nothing else.

#if defined(VXDPI_BUILDING)
#define VXDPI_API __declspec(dllexport)
#else
#define VXDPI_API __declspec(dllimport)
#endif
