#pragma once

#define IDR_PICTURE_96 101
#define IDR_PICTURE_192 102
#define IDD_SETTINGS 103
