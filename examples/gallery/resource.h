#pragma once

// Identifiers of the gallery's resources and controls. One PNG picture has three: for 96, 144 and 192 DPI.

#define IDI_GALLERY 100

#define IDR_DESKTOP_96 111
#define IDR_DESKTOP_144 112
#define IDR_DESKTOP_192 113

#define IDR_COMPASS_96 121
#define IDR_COMPASS_144 122
#define IDR_COMPASS_192 123

#define IDR_LANDSCAPE_96 131
#define IDR_LANDSCAPE_144 132
#define IDR_LANDSCAPE_192 133

#define IDR_BADGE_96 141
#define IDR_BADGE_144 142
#define IDR_BADGE_192 143

#define IDR_BELL_96 151
#define IDR_BELL_144 152
#define IDR_BELL_192 153

#define IDR_GEAR_96 161
#define IDR_GEAR_144 162
#define IDR_GEAR_192 163

#define IDR_MONITORS_96 171
#define IDR_MONITORS_144 172
#define IDR_MONITORS_192 173

#define IDD_LAYOUT 200
#define IDC_TOP_LEFT 201
#define IDC_TOP 202
#define IDC_TOP_RIGHT 203
#define IDC_LEFT 204
#define IDC_MIDDLE 205
#define IDC_RIGHT 206
#define IDC_BOTTOM_LEFT 207
#define IDC_BOTTOM 208
#define IDC_BOTTOM_RIGHT 209
