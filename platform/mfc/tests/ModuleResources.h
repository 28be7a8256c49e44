#pragma once

// String resources of the test program, IDs 1000 and up, and of its DLLs, 2000 and up. The script compiler
// reads this file, too.

#define IDS_PROGRAM_ONLY 1000
#define IDS_IN_BOTH 1001
#define IDS_FORMAT 1002
#define IDS_ONE_REPLACEMENT 1003
#define IDS_TWO_REPLACEMENTS 1004
#define IDS_MISSING 1900

#define IDS_DLL_ONLY 2000
