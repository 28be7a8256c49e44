#pragma once

#if defined(VXMFC_BUILDING)
#define VXMFC_API __declspec(dllexport)
#else
#define VXMFC_API __declspec(dllimport)
#endif
