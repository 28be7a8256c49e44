#pragma once

/// @file
/// Marks what the library exports: classes and free functions of the public headers, nothing else.

#if defined(VXDPI_BUILDING)
#define VXDPI_API __declspec(dllexport)
#else
/// Stands before everything that the library exports: imports it into an application, and exports it while
/// the library itself is built.
#define VXDPI_API __declspec(dllimport)
#endif
