#pragma once

#define IDI_VELVOX 1

// Title bar pictures: the number of the piece plus the resolution in DPI that the picture is for.
#define IDB_TITLE_CORNER 1000
#define IDB_TITLE_BAR 2000
#define IDB_TITLE_END 3000
