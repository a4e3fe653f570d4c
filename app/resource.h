#pragma once

#define IDI_VELVOX 1

// Title bar pictures: the number of a picture is the base number of its piece plus the resolution
// in DPI for which it is drawn.
#define IDB_TITLE_CORNER 1000
#define IDB_TITLE_BAR 2000
#define IDB_TITLE_END 3000
