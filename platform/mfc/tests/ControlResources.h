#pragma once

// Resources that the tests of bitmaps, image lists and menus load. The script compiler reads this file, too.

#define IDB_STRIP 1100
#define IDR_TEST_MENU 1101
