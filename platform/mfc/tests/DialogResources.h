#pragma once

// Dialog templates of the test program. The script compiler reads this file, too.

#define IDD_MODAL 3000
#define IDD_WITHOUT_CLASS 3001
#define IDD_CHILD 3002
#define IDD_MISSING 3099

#define IDC_TEXT 3010
#define IDC_NUMBER 3011
#define IDC_ROUTED 0x8100

#define IDR_FRAME 3020
#define ID_FRAME_COMMAND 0x8200
#define ID_FRAME_UNHANDLED 0x8201
