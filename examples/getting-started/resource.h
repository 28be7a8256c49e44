#pragma once

#define IDR_COMPASS_96 101
#define IDR_COMPASS_144 102
#define IDR_COMPASS_192 103
