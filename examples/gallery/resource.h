#pragma once

// Identifiers of the resources and controls. Those of the PNG pictures are from 1000 on.

#define IDI_GALLERY 100
#define IDI_CALENDAR 101
#define IDI_FOLDER 102

#define IDB_MAP_96 111
#define IDB_MAP_120 112
#define IDB_MAP_144 113
#define IDB_MAP_192 114

#define IDB_BALLOON_96 121
#define IDB_BALLOON_120 122
#define IDB_BALLOON_144 123
#define IDB_BALLOON_192 124

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

#define IDC_TOOLBAR 300
#define IDC_TOOL_LIST 301
#define IDC_SCENE 302

#define IDD_LIST 305
#define IDC_SCREENS 306

// The controls of a dialog that follows its DPI have an ID each, labels too, but only these have a name.
#define IDD_FORM 310
#define IDC_FORM_COMPANY 311
#define IDC_FORM_CONTACT 312
#define IDC_FORM_STREET 313
#define IDC_FORM_POSTCODE 314
#define IDC_FORM_TOWN 315
#define IDC_FORM_PARCEL 316
#define IDC_FORM_FREIGHT 317
#define IDC_FORM_COLLECTED 318
#define IDC_FORM_DATE 319
#define IDC_FORM_NEIGHBOUR 320
#define IDC_FORM_ACCOUNT 321
#define IDC_FORM_DISCOUNT 322
#define IDC_FORM_NOTES 323

#define IDD_TOOL_STRIP 380
#define IDC_PLAY 381
#define IDC_OPEN_DIALOG 382
#define IDC_OPEN_FRAME 383

#define IDD_MESSAGE 390
#define IDC_MESSAGE_READ 391
