#pragma once

#define IDI_VELVOX 1

// Title bar pictures: a base number for each piece, plus the resolution in DPI of the picture.
#define IDB_TITLE_CORNER 1000
#define IDB_TITLE_BAR 2000
#define IDB_TITLE_END 3000
